#include "tests/actions/opened_results.h"

namespace bracken::test {
namespace {

class Drop : public OpenedResults {
  protected:
    Drop() { show({{"users", "a.php,"}, {"log", "Not Found Yet"}, {"a`b", "Not Found Yet"}}); }

    void press(int row, int answer) {
        window.lstResults.userSelected(row);
        program.platform.expectBox("Are you sure you wish to drop this table from the database?",
                                   answer);
        window.butDropTable.userPressed();
    }
};

TEST_F(Drop, AsksEachTimeAndNoMeansNothing) {
    App().prefs->root->SetBoolean("no warning", true);
    for (int row : {0, 1}) press(row, BoxCode::noPressed);
    EXPECT_EQ(program.platform.boxCodes, (std::vector<int>{36, 36}));
    EXPECT_TRUE(program.db->statements.empty());
    EXPECT_EQ(state(), "users log a`b | Drop Table, View Data, ");
}

TEST_F(Drop, TakesAwayTheRowThatIsSelectedOnceTheQuestionIsAnswered) {
    program.db->succeeds("drop table `d`.`users`");
    press(0, BoxCode::yesPressed);
    EXPECT_EQ(window.lstResults.ListIndex, -1);
    EXPECT_EQ(state(), "log a`b | View Script, ");
    program.db->succeeds("drop table `d`.`log`");
    program.platform.whileBoxIsOpen = [this] {
        baton::Hold hold;
        window.lstResults.userSelected(0);
    };
    press(1, BoxCode::yesPressed);
    EXPECT_EQ(state(), "a`b | View Script, ");
}

TEST_F(Drop, ARefusalShowsTheServersWordsAndChangesNothing) {
    for (const char* table : {"users", "a`b"})
        program.db->fails("drop table `d`.`" + std::string(table) + "`", "DROP command denied");
    for (int row : {0, 2}) {
        window.lstResults.userSelected(row);
        program.platform.whileBoxIsOpen = [this] {
            program.platform.whileBoxIsOpen = nullptr;
            program.platform.expectBox("DROP command denied");
        };
        press(row, BoxCode::yesPressed);
        EXPECT_EQ(window.lstResults.ListIndex, row);
        EXPECT_EQ(state(), "users log a`b | Drop Table, View Data, " +
                               std::string(row == 0 ? "View Script, " : ""));
    }
    EXPECT_EQ(program.platform.boxCodes, (std::vector<int>{36, 16, 36, 16}));
    EXPECT_EQ(program.db->statements, (Row{"drop table `d`.`users`", "drop table `d`.`a`b`"}));
}

}  // namespace
}  // namespace bracken::test
