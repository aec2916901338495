#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "framework/controls/edit_field.h"
#include "framework/controls/listbox.h"
#include "framework/controls/popup_menu.h"
#include "framework/exception.h"
#include "framework/text/text.h"
#include "framework/windows/window.h"
#include "tests/support/fake_platform.h"

namespace bracken {
namespace {

class Controls : public testing::Test {
  protected:
    Controls() {
        list.Change = [this] { changes++; };
        popup.Change = [this] { changes++; };
        field.TextChange = [this] { changes++; };
    }
    // How often Change has fired since the last call.
    int fired() { return std::exchange(changes, 0); }
    void addRows(const std::vector<std::string>& rows) {
        for (const std::string& row : rows) list.AddRow(row);
    }
    std::string rows() {
        std::string all;
        for (int row = 0; row < list.ListCount(); row++)
            all += std::string(list.Cell(row, 0)) + " ";
        return all;
    }

    test::FakePlatform platform;
    std::shared_ptr<Window> window = std::make_shared<Window>();
    Listbox list{*window, "list"};
    PopupMenu popup{*window, "popup"};
    EditField field{*window, "field"};
    int changes = 0;
};

TEST_F(Controls, APopupFiresOnEveryAssignment) {
    EXPECT_EQ(popup.Text(), "");
    popup.AddRow("zero");
    popup.AddRow("one");
    EXPECT_EQ(fired(), 0);
    popup.ListIndex = 1;
    popup.ListIndex = 1;
    EXPECT_EQ(fired(), 2);
    for (const int noChoice : {1, 2, -1}) popup.userChose(noChoice);
    EXPECT_EQ(fired(), 0);
    popup.userChose(0);
    EXPECT_EQ(fired(), 1);
    popup.DeleteAllRows();
    EXPECT_EQ(fired(), 0);
    EXPECT_EQ(popup.ListIndex, -1);
    EXPECT_THROW(popup.List(0), IndexOutOfRangeException);
}

TEST_F(Controls, TheSelectionStaysWithItsRow) {
    addRows({"a", "b", "c", "d"});
    list.ListIndex = 2;
    EXPECT_EQ(fired(), 1);
    list.ListIndex = 2;
    list.RemoveRow(0);
    EXPECT_EQ(list.ListIndex, 1);
    EXPECT_EQ(list.Text(), "c");
    list.RemoveRow(2);
    EXPECT_EQ(fired(), 0);
    list.RemoveRow(1);
    EXPECT_EQ(list.ListIndex, -1);
    list.DeleteAllRows();
    EXPECT_EQ(fired(), 1);
    addRows({"a"});
    list.userSelected(0);
    list.userSelected(7);
    EXPECT_EQ(list.ListIndex, 0);
    list.DeleteAllRows();
    EXPECT_EQ(fired(), 2);
}

TEST_F(Controls, CellsOutsideTheRowsRaise) {
    addRows({"a"});
    list.ColumnCount = 2;
    list.Cell(0, 5) = "kept";
    EXPECT_EQ(std::string(list.Cell(0, 5)), "kept");
    EXPECT_EQ(std::string(list.Cell(0, 4)), "");
    for (auto [row, column] : {std::pair(-1, 0), std::pair(1, 0), std::pair(0, -1)}) {
        EXPECT_THROW(list.cellText(row, column), IndexOutOfRangeException);
        EXPECT_THROW((list.Cell(row, column) = "x"), IndexOutOfRangeException);
        EXPECT_THROW(list.appendToCell(row, column, "x"), IndexOutOfRangeException);
    }
    EXPECT_THROW(list.RemoveRow(1), IndexOutOfRangeException);
}

TEST_F(Controls, AStructureVersionIsNeverSeenTwice) {
    std::set<uint64_t> seen = {list.structureVersion()};
    const std::function<void()> changes[] = {
        [&] { list.AddRow("b"); },           [&] { list.AddRow("a"); },
        [&] { list.Cell(0, 0) = "c"; },      [&] { list.appendToCell(0, 0, "c"); },
        [&] { list.userClickedHeading(0); }, [&] { list.RemoveRow(0); },
        [&] { list.DeleteAllRows(); },
    };
    for (const auto& change : changes) {
        change();
        EXPECT_TRUE(seen.insert(list.structureVersion()).second) << &change - changes;
    }
    list.AddRow("a");
    const uint64_t version = list.structureVersion();
    list.Cell(0, 1) = "x";
    EXPECT_EQ(list.structureVersion(), version) << "only column 0 counts";
}

TEST_F(Controls, AClickOnAHeadingSortsStablyAndTurnsRound) {
    addRows({"b", "10", "B", "9", "a", "-1.5", ""});
    list.HeadingIndex = 0;
    list.Cell(2, 0) = "B";
    list.ListIndex = 3;
    fired();
    list.userClickedHeading(0);
    EXPECT_EQ(rows(), "-1.5 9 10  a b B ");
    EXPECT_EQ(list.Text(), "9");
    list.userClickedHeading(0);
    EXPECT_EQ(rows(), "b B a  10 9 -1.5 ");
    EXPECT_EQ(list.Text(), "9");
    list.userClickedHeading(4);
    EXPECT_EQ(list.HeadingIndex, 0);
    EXPECT_EQ(fired(), 0);
}

TEST_F(Controls, ColumnWidthsByPixelsAndShares) {
    struct Case {
        int columns;
        const char* widths;
        std::vector<int> pixels;
    };
    const Case cases[] = {{3, "20%,80%,0", {136, 544, 0}},
                          {2, "20%", {136, 544}},
                          {8, "", {85, 85, 85, 85, 85, 85, 85, 85}},
                          {3, "600,,", {600, 75, 75}},
                          {2, "900", {900, 75}},
                          {1, "10,20", {10}},
                          {2, "-5,10", {0, 10}},
                          {0, "10", {}}};
    for (const Case& one : cases) {
        list.ColumnCount = one.columns;
        list.ColumnWidths = one.widths;
        EXPECT_EQ(list.columnPixels(680), one.pixels) << one.widths;
    }
}

TEST_F(Controls, AFieldFiresWhenItsTextDiffersAndForgetsStylesAlways) {
    field.Text = "users";
    EXPECT_EQ(fired(), 1);
    // Each of two marks that overlap stands on its own letters.
    for (const int start : {1, 3}) {
        field.SelStart = start;
        field.SelLength = start == 1 ? 3 : 99;
        (start == 1 ? field.SelBold : field.SelOutline) = true;
    }
    std::string marks;
    for (const StyleRun& run : field.styles().runs())
        marks += std::to_string(run.from) + "-" + std::to_string(run.end()) +
                 (run.style.bold ? " bold" : "") + (run.style.outline ? " outline " : " ");
    EXPECT_EQ(marks, "1-3 bold 3-4 bold outline 4-5 outline ");
    field.Text = "users";
    EXPECT_EQ(fired(), 0);
    EXPECT_TRUE(field.styles().runs().empty());
    field.userEdited("user");
    EXPECT_EQ(fired(), 1);
}

}  // namespace
}  // namespace bracken
