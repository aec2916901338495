#include "framework/controls/edit_field.h"
#include "framework/controls/list_rows.h"
#include "framework/controls/listbox.h"
#include "framework/controls/popup_menu.h"
#include "framework/exception.h"
#include "tests/support/fake_platform.h"

namespace bracken::test {

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

    FakePlatform platform;
    std::shared_ptr<Window> window = std::make_shared<Window>();
    Listbox list{*window, "list"};
    PopupMenu popup{*window, "popup"};
    EditField field{*window, "field"};
    int changes = 0;
};

TEST_F(Controls, APopupFiresOnEveryAssignment) {
    for (const char* row : {"zero", "one"}) popup.AddRow(row);
    EXPECT_EQ(fired(), 0);
    popup.ListIndex = 1;
    popup.ListIndex = 1;
    EXPECT_EQ(fired(), 2);
    for (const int choice : {1, 2, -1, 0}) popup.userChose(choice);
    EXPECT_EQ(fired(), 1);
    popup.DeleteAllRows();
    EXPECT_EQ(fired(), 0);
    EXPECT_EQ(popup.ListIndex, -1);
}

TEST_F(Controls, CellsOutsideTheRowsRaise) {
    addRows({"a"});
    list.ColumnCount = 2;
    list.Cell(0, 5) = "kept";
    EXPECT_EQ(std::string(list.Cell(0, 5)), "kept");
    for (auto [row, column] : {std::pair(-1, 0), std::pair(1, 0), std::pair(0, -1)}) {
        EXPECT_THROW(list.cellText(row, column), IndexOutOfRangeException);
        EXPECT_THROW(list.appendToCell(row, column, "x"), IndexOutOfRangeException);
    }
    EXPECT_THROW(list.RemoveRow(1), IndexOutOfRangeException);
}

TEST_F(Controls, AClickOnAHeadingSortsStablyAndTurnsRound) {
    addRows({"b", "10", "B", "9", "a", "-1.5", ""});
    list.ListIndex = 3;
    fired();
    list.userClickedHeading(0);
    EXPECT_EQ(rows(), "-1.5 9 10  a b B ");
    list.userClickedHeading(0);
    EXPECT_EQ(rows(), "b B a  10 9 -1.5 ");
    EXPECT_EQ(list.Text(), "9");
    EXPECT_EQ(list.HeadingIndex, 0);
    EXPECT_EQ(fired(), 0);
}

TEST_F(Controls, ColumnWidthsByPixelsAndShares) {
    struct Case {
        int columns;
        const char* widths;
        std::vector<int> pixels;
    };
    for (const Case& one : {Case{3, "20%,80%,0", {136, 544, 0}},
                            {2, "20%", {136, 544}},
                            {4, "", {170, 170, 170, 170}},
                            {3, "600,,", {600, 75, 75}},
                            {1, "10,20", {10}}}) {
        list.ColumnCount = one.columns;
        list.ColumnWidths = one.widths;
        EXPECT_EQ(list.columnPixels(680), one.pixels) << one.widths;
    }
}

TEST_F(Controls, AFieldFiresWhenItsTextDiffersAndForgetsStylesAlways) {
    field.Text = "users";
    EXPECT_EQ(fired(), 1);
    field.SelLength = 3;
    field.SelBold = true;
    ASSERT_EQ(field.styles().runs().size(), 1);
    field.Text = "users";
    EXPECT_EQ(fired(), 0);
    EXPECT_TRUE(field.styles().runs().empty());
    field.userEdited("user");
    EXPECT_EQ(fired(), 1);
}

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
        }
    rows.reorder(order);
    for (int row = 0; row < count; ++row) {
        const size_t length = lengths[count - 1 - row];
        EXPECT_EQ(rows.text(row, 0), std::string(length, 'a'));
        EXPECT_EQ(rows.text(row, 2), "");
        EXPECT_EQ(rows.text(row, 3), std::string(length, 'd'));
    }
}

}  // namespace bracken::test
