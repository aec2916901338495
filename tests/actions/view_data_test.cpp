#include "program/actions/win_view_data.h"
#include "program/menu_bar1.h"
#include "tests/actions/opened_results.h"

namespace bracken::test {

class Data : public OpenedResults {
  protected:
    // Lets the server know a table: the fields that are described, and the rows that come.
    void table(const std::string& name, const Row& columns, const std::vector<Row>& rows) {
        std::vector<Row> description;
        for (const std::string& column : columns) description.push_back({"text", column});
        program.db->answers("describe `d`.`" + name + "`", {"Type", "Field"}, description);
        program.db->answers("select * from `d`.`" + name + "`", columns, rows);
    }
    class winViewData& view(const std::string& name) {
        window.lstResults.AddRow(name);
        window.lstResults.userSelected(window.lstResults.LastIndex());
        window.butViewData.userPressed();
        return winViewData();
    }
    // The grid: headings, then rows, and the widths.
    static std::string grid() {
        Listbox& list = winViewData().Listbox1;
        std::string text;
        for (int column = 0; column < list.ColumnCount; column++)
            text += list.Heading(column) + "|";
        return text + "\n" + textOf(list) + list.ColumnWidths.get();
    }
};

TEST_F(Data, ShowsAllRowsAndSharesTheWidthByTheLongestText) {
    struct Case {
        Row columns;
        std::vector<Row> rows;
        const char* grid;
        int yields;
    };
    for (const Case& one : {Case{{"a"}, {{"long text"}}, "a|\nlong text|\n0", 5},
                            Case{{"id", "title", "x"},
                                 {{"12345", "tttttttttttttttttttt", ""}, {"3", "", ""}},
                                 "id|title|x|\n12345|tttttttttttttttttttt||\n3|||\n0,75,300",
                                 17},
                            Case{{"name", "b"}, {}, "name|b|\n0,60", 6}}) {
        table("t", one.columns, one.rows);
        EXPECT_EQ(yieldsOf([&] { view("t"); }), one.yields);
        EXPECT_EQ(grid(), one.grid);
        EXPECT_FALSE(window.ProgressWheel1.Visible);
        EXPECT_EQ(program.db->openCursors, 0);
        EXPECT_EQ(winViewData().Title.get(), "View Data for t");
        // Close in the File menu closes the window in front, but never the results.
        for (int time = 0; time < 2; time++) App().userChoseMenu("FileClose");
        EXPECT_FALSE(isOpen("View Data for t"));
        EXPECT_TRUE(isOpen("Results"));
    }
}

TEST_F(Data, FillsTwentyFiveColumnsAtMostAndShowsASecondTableBelow) {
    for (int count : {25, 26}) {
        Row columns, values;
        for (int i = 1; i <= count; i++) {
            columns.push_back("c" + Str(i));
            values.push_back("v" + Str(i));
        }
        table("wide", columns, {values});
        auto& data = view("wide");
        EXPECT_EQ(data.Listbox1.ColumnCount, count);
        EXPECT_EQ(data.Listbox1.Heading(24) + data.Listbox1.Heading(25), "c25");
        EXPECT_EQ(data.Listbox1.cellText(0, 24), "v25");
        EXPECT_EQ(data.Listbox1.cellText(0, 25), "");
        EXPECT_EQ(CountFields(data.Listbox1.ColumnWidths.get(), ","), 25);
        EXPECT_EQ(data.lblMessage.Caption.get(),
                  count == 25 ? "" : "This table has 26 columns. Only the first 25 will be shown.");
        if (count == 25) data.Close();
    }
    table("small", {"a", "b"}, {{"1", "2"}});
    auto& data = view("small");
    EXPECT_EQ(grid(), "a|b|\nv1|v2|\n1|2|\n0,15");
    EXPECT_EQ(data.Listbox1.Heading(2), "c3");
    EXPECT_EQ(data.Listbox1.cellText(0, 24), "v25");
    EXPECT_NE(data.lblMessage.Caption.get(), "");
}

TEST_F(Data, FailuresEndWithTheWheelTurning) {
    table("fine", {"a", "b"}, {{"1", "2"}});
    const std::string gone = "Table 'd.gone' doesn't exist";
    program.db->fails("describe `d`.`gone`", gone);
    program.platform.expectBox(gone);
    EXPECT_EQ(endOf([&] { view("gone"); }), "NilObjectException: " + gone);

    const std::string rows = "select * from `d`.`fine`";
    program.db->fails(rows, "SELECT command denied");
    EXPECT_EQ(endOf([&] { view("fine"); }), "NilObjectException: SELECT command denied");
    // A column that the table hides is described but not delivered.
    program.db->answers(rows, {"a"}, {{"1"}});
    EXPECT_EQ(endOf([&] { view("fine"); }), "NilObjectException: There is no field 2.");
    program.db->answers(rows, {"a", "b"}, {{"1", "2"}}, "Lost connection");
    EXPECT_EQ(endOf([&] { view("fine"); }), "DatabaseException: Lost connection");
    EXPECT_TRUE(window.ProgressWheel1.Visible);
}

}  // namespace bracken::test
