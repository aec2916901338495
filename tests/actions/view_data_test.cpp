#include "framework/text/text.h"
#include "program/actions/win_view_data.h"
#include "program/menu_bar1.h"
#include "tests/actions/opened_results.h"

namespace bracken::test {
namespace {

class Data : public OpenedResults {
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
    class winViewData& view(const std::string& name) {
        window.lstResults.AddRow(name);
        window.lstResults.userSelected(window.lstResults.LastIndex());
        window.butViewData.userPressed();
        return winViewData();
    }
    // The grid: headings, then rows.
    static std::string grid() {
        Listbox& list = winViewData().Listbox1;
        std::string text;
        for (int column = 0; column < list.ColumnCount; column++)
            text += list.Heading(column) + "|";
        return text + "\n" + textOf(list);
    }
};

TEST_F(Data, ShowsAllRowsAndSharesTheWidthByTheLongestText) {
    struct Case {
        Row columns;
        std::vector<Row> rows;
        const char *grid, *widths;
    };
    const Case cases[] = {{{"a"}, {{"long text"}}, "a|\nlong text|\n", "0"},
                          {{"id", "title", "x"},
                           {{"12345", "tttttttttttttttttttt", ""}, {"3", "", ""}},
                           "id|title|x|\n12345|tttttttttttttttttttt||\n3|||\n",
                           "0,75,300"},
                          {{"name", "b"}, {}, "name|b|\n", "0,60"},
                          {{"n", "b"}, {{"\xc3\xa4", ""}}, "n|b|\n\xc3\xa4||\n", "0,30"}};
    for (const Case& one : cases) {
        table("t", one.columns, one.rows);
        const auto columns = static_cast<int>(one.columns.size());
        EXPECT_EQ(
            yieldsOf([&] { view("t"); }),
            2 + columns + static_cast<int>(one.rows.size()) * (columns + 1) + 2 * (columns - 1));
        EXPECT_EQ(grid(), one.grid);
        EXPECT_EQ(winViewData().Listbox1.ColumnWidths.get(), one.widths);
        EXPECT_FALSE(window.ProgressWheel1.Visible);
        EXPECT_EQ(program.db->openCursors, 0);
        ASSERT_NE(opened("View Data for t"), nullptr);
        winViewData().Close();
    }
}

TEST_F(Data, FillsTwentyFiveColumnsAtMost) {
    for (int count : {25, 26, 400}) {
        SCOPED_TRACE(count);
        table("wide", numbered("c", count), {numbered("v", count)});
        auto& data = view("wide");
        Listbox& list = data.Listbox1;
        EXPECT_EQ(list.ColumnCount, count);
        EXPECT_EQ(list.Heading(24) + list.Heading(25), "c25");
        EXPECT_EQ(std::string(list.Cell(0, 24)) + std::string(list.Cell(0, 25)), "v25");
        EXPECT_EQ(CountFields(list.ColumnWidths.get(), ","), 25);
        EXPECT_EQ(data.lblMessage.Caption.get(),
                  count == 25 ? ""
                              : "This table has " + Str(count) +
                                    " columns. Only the first 25 will be shown.");
        data.Close();
    }
}

TEST_F(Data, ASecondTableComesBelowTheFirst) {
    table("wide", numbered("c", 26), {numbered("v", 26)});
    table("small", {"a", "b"}, {{"1", "2"}});
    view("wide");
    auto& data = view("small");
    EXPECT_EQ(grid(), "a|b|\nv1|v2|\n1|2|\n");
    EXPECT_EQ(data.Listbox1.Heading(2), "c3");
    EXPECT_EQ(std::string(data.Listbox1.Cell(0, 24)), "v25");
    EXPECT_EQ(data.Listbox1.ColumnWidths.get(), "0,15");
    EXPECT_EQ(data.lblMessage.Caption.get(),
              "This table has 26 columns. Only the first 25 will be shown.");
}

TEST_F(Data, FailuresEndWithTheWheelTurning) {
    table("fine", {"a", "b"}, {{"1", "2"}});
    program.db->fails("describe `d`.`gone`", "Table 'd.gone' doesn't exist");
    program.platform.expectBox("Table 'd.gone' doesn't exist");
    EXPECT_EQ(endOf([&] { view("gone"); }), "NilObjectException: Table 'd.gone' doesn't exist");

    const std::string rows = "select * from `d`.`fine`";
    program.db->fails(rows, "SELECT command denied");
    EXPECT_EQ(endOf([&] { view("fine"); }), "NilObjectException: SELECT command denied");
    // A column that the table hides is described but not delivered.
    program.db->answers(rows, {"a"}, {{"1"}});
    EXPECT_EQ(endOf([&] { view("fine"); }), "NilObjectException: There is no field 2.");
    program.db->breaksOff(rows, {"a", "b"}, {{"1", "2"}}, "Lost connection");
    EXPECT_EQ(endOf([&] { view("fine"); }), "DatabaseException: Lost connection");
    EXPECT_TRUE(window.ProgressWheel1.Visible);
}

TEST_F(Data, CloseOfTheFileMenuClosesIt) {
    table("t", {"a"}, {});
    view("t");
    App().userChoseMenu("FileClose");
    EXPECT_EQ(opened("View Data for t"), nullptr);
    Windows::get().toFront(window);
    App().userChoseMenu("FileClose");
    EXPECT_NE(opened("Results"), nullptr);
}

}  // namespace
}  // namespace bracken::test
