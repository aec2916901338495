#include <gtest/gtest.h>

#include "framework/text/text.h"
#include "program/actions/win_view_data.h"
#include "program/menu_bar1.h"
#include "tests/actions/opened_results.h"
#include "tests/support/outcome.h"

namespace bracken {
namespace {

using test::Row;

class Data : public testing::Test, protected test::OpenedResults {
  protected:
    // Lets the server know a table: the fields that are described, and the rows that come.
    void table(const std::string& name, const Row& columns, const std::vector<Row>& rows) {
        std::vector<Row> description;
        for (const std::string& column : columns) description.push_back({"text", column});
        program.db->answers("describe `d`.`" + name + "`", {"Type", "Field"}, description);
        program.db->answers("select * from `d`.`" + name + "`", columns, rows);
    }
    static Row numbered(const std::string& prefix, int count) {
        Row names;
        for (int i = 1; i <= count; i++) names.push_back(prefix + Str(i));
        return names;
    }
    void view(const std::string& name) {
        window.lstResults.AddRow(name);
        window.lstResults.userSelected(window.lstResults.LastIndex());
        window.butViewData.userPressed();
    }
    void view(const std::string& name, const Row& columns, const std::vector<Row>& rows) {
        table(name, columns, rows);
        view(name);
    }
    std::string endOf(const std::string& name) {
        return test::endOf([&] { view(name); });
    }
    // The grid: headings, then rows, cells joined by "|".
    static std::string grid() {
        Listbox& list = winViewData().Listbox1;
        std::string text;
        for (int column = 0; column < list.ColumnCount; column++)
            text += list.Heading(column) + "|";
        for (int row = 0; row < list.ListCount(); row++) {
            text += "\n";
            for (int column = 0; column < list.ColumnCount; column++)
                text += std::string(list.cellText(row, column)) + "|";
        }
        return text;
    }
    static std::string widths() { return winViewData().Listbox1.ColumnWidths; }
    static std::string message() { return winViewData().lblMessage.Caption; }
};

TEST_F(Data, ShowsAllRowsAndShiftsTheWidths) {
    std::string title(20, 't');
    table("books", {"id", "title"}, {{"1", "x"}, {"12345", title}, {"3", ""}});
    EXPECT_EQ(test::yieldsOf([&] { view("books"); }), 2 + 2 + 3 * (2 + 1) + 2);
    EXPECT_EQ(grid(), "id|title|\n1|x|\n12345|" + title + "|\n3||");
    EXPECT_EQ(widths(), "0,75");
    EXPECT_NE(opened("View Data for books"), nullptr);
    EXPECT_FALSE(window.ProgressWheel1.Visible);
    EXPECT_EQ(program.db->openCursors, 0);
}

struct WidthCase {
    Row columns;
    std::vector<Row> rows;
    const char* widths;
};

TEST_F(Data, WidthsFollowTheLongestText) {
    const WidthCase cases[] = {
        {{"a"}, {{"long text"}}, "0"},
        {{"id", "title", "x"}, {{"12345", std::string(20, 't'), ""}}, "0,75,300"},
        {{"name", "b"}, {}, "0,60"},
        {{"name", "b"}, {{"abc", ""}}, "0,60"},
        {{"n", "b"}, {{"\xc3\xa4", ""}}, "0,30"}};
    for (const WidthCase& one : cases) {
        view("t", one.columns, one.rows);
        EXPECT_EQ(widths(), one.widths);
        winViewData().Close();
    }
}

TEST_F(Data, FillsTwentyFiveColumnsAtMost) {
    for (int count : {25, 26, 400}) {
        SCOPED_TRACE(count);
        view("wide", numbered("c", count), {numbered("v", count)});
        Listbox& list = winViewData().Listbox1;
        EXPECT_EQ(list.ColumnCount, count);
        EXPECT_EQ(list.Heading(24) + list.Heading(25), "c25");
        EXPECT_EQ(std::string(list.Cell(0, 24)) + std::string(list.Cell(0, 25)), "v25");
        EXPECT_EQ(CountFields(widths(), ","), 25);
        EXPECT_EQ(message(), count == 25 ? ""
                                         : "This table has " + Str(count) +
                                               " columns. Only the first 25 will be shown.");
        winViewData().Close();
    }
}

TEST_F(Data, ASecondTableComesBelowTheFirst) {
    view("wide", numbered("c", 26), {numbered("v", 26)});
    view("small", {"a", "b"}, {{"1", "2"}});
    Listbox& list = winViewData().Listbox1;
    EXPECT_EQ(grid(), "a|b|\nv1|v2|\n1|2|");
    EXPECT_EQ(list.Heading(2), "c3");
    EXPECT_EQ(std::string(list.Cell(0, 24)), "v25");
    EXPECT_EQ(widths(), "0,15");
    EXPECT_EQ(message(), "This table has 26 columns. Only the first 25 will be shown.");
    winViewData().Close();
    view("small");
    EXPECT_EQ(grid(), "a|b|\n1|2|");
    EXPECT_EQ(message(), "");
}

TEST_F(Data, FailuresEndWithTheWheelTurning) {
    table("fine", {"a", "b"}, {{"1", "2"}});
    program.db->fails("describe `d`.`gone`", "Table 'd.gone' doesn't exist");
    program.platform.expectBox("Table 'd.gone' doesn't exist");
    EXPECT_EQ(endOf("gone"), "NilObjectException: Table 'd.gone' doesn't exist");

    program.db->fails("select * from `d`.`fine`", "SELECT command denied");
    EXPECT_EQ(endOf("fine"), "NilObjectException: SELECT command denied");

    // A column that the table hides is described but not delivered.
    program.db->answers("select * from `d`.`fine`", {"a"}, {{"1"}});
    EXPECT_EQ(endOf("fine"), "NilObjectException: There is no field 2.");

    program.db->breaksOff("select * from `d`.`fine`", {"a", "b"}, {{"1", "2"}}, "Lost connection");
    EXPECT_EQ(endOf("fine"), "DatabaseException: Lost connection");
    EXPECT_TRUE(window.ProgressWheel1.Visible);
}

TEST_F(Data, CloseOfTheFileMenuClosesIt) {
    view("t", {"a"}, {});
    App().userChoseMenu("FileClose");
    EXPECT_EQ(opened("View Data for t"), nullptr);
    Windows::get().toFront(window);
    App().userChoseMenu("FileClose");
    EXPECT_NE(opened("Results"), nullptr);
}

}  // namespace
}  // namespace bracken
