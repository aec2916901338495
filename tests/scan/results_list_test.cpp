#include "program/results/results_list.h"

#include <gtest/gtest.h>

#include <random>

#include "framework/text/text.h"
#include "framework/windows/window.h"
#include "tests/support/fake_platform.h"

namespace bracken::test {

// What recording a file makes of a cell's text.
std::string recorded(std::string text, const std::string& name) {
    if (equal(text, notFoundYet)) text.clear();
    return InStr(0, text, name) > 0 ? text : text + name + ",";
}

// The index of the names against a search of the text, over all that may happen to the cell.
TEST(ResultsList, RecordsAFileWhoseNameInStrDoesNotFind) {
    FakePlatform platform;
    const auto window = std::make_shared<Window>();
    ResultsList list{*window, "list"};
    std::mt19937 random(20260105);
    // Now and then longer than most file systems take.
    const auto name = [&](const char* letters) {
        std::string made(random() % 6 == 0 ? 300 : 0, 'm');
        for (auto length = 1 + random() % 3; length > 0; length--) made += letters[random() % 5];
        return made;
    };
    for (int step = 0; step < 4000; step++) {
        if (step % 500 == 0) list.DeleteAllRows();
        if (list.ListCount() < 3) list.AddRow("x");
        const int row = static_cast<int>(random() % static_cast<size_t>(list.ListCount()));
        const auto what = random() % 100;
        if (what == 0) list.Cell(row, 1) = name("aB.,b") + (random() % 2 == 0 ? "," : "");
        if (what == 1) list.Cell(row, 1) = notFoundYet;
        if (what == 2) list.RemoveRow(row);
        if (what == 3) list.userClickedHeading(0);
        if (row >= list.ListCount()) continue;
        const std::string added = name(what == 20 ? "aB.,b" : "aB.bA");
        const std::string expected = recorded(list.Cell(row, 1), added);
        list.recordFile(row, added, "/" + added);
        ASSERT_EQ(std::string(list.Cell(row, 1)), expected) << "step " << step << ": " << added;
    }
}

}  // namespace bracken::test
