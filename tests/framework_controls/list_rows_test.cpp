#include "framework/controls/list_rows.h"

#include <gtest/gtest.h>

namespace bracken {
namespace {

TEST(ListRows, HoldTextsOfAnyLengthInAnyOrder) {
    // About these a row changes its layout.
    constexpr size_t lengths[] = {0, 1, 7, 120, 255, 256, 300, 65'535, 65'536, 70'000};
    constexpr int count = std::size(lengths);
    ListRows rows;
    std::vector<int> order;
    for (const size_t length : lengths) {
        order.insert(order.begin(), rows.count());
        rows.add({std::string(length, 'a'), "b", "", std::string(length, 'd')});
    }
    for (int row = 0; row < count; ++row)
        for (const size_t length : lengths) {
            rows.set(row, 1, std::string(length, 'x'));
            rows.append(row, 1, "y");
            ASSERT_EQ(rows.text(row, 1), std::string(length, 'x') + "y");
            rows.set(row, 4, "");
            rows.append(row, 4, std::string(length, 'z'));
            ASSERT_EQ(rows.text(row, 4), std::string(length, 'z'));
        }
    rows.reorder(order);
    rows.remove(0);
    ASSERT_EQ(rows.count(), count - 1);
    for (int row = 0; row < rows.count(); ++row) {
        const size_t length = lengths[count - 2 - row];
        EXPECT_EQ(rows.text(row, 0), std::string(length, 'a'));
        EXPECT_EQ(rows.text(row, 2), "");
        EXPECT_EQ(rows.text(row, 3), std::string(length, 'd'));
        EXPECT_EQ(rows.text(row, 5), "");
    }
}

}  // namespace
}  // namespace bracken
