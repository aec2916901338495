#include <gtest/gtest.h>

#include "tests/actions/opened_results.h"

namespace bracken {
namespace {

const std::string question = "Are you sure you wish to drop this table from the database?";

class Drop : public testing::Test, protected test::OpenedResults {
  protected:
    void SetUp() override {
        show({{"users", "a.php,"}, {"log", "Not Found Yet"}, {"a`b", "Not Found Yet"}});
    }
    void press(int row, int answer) {
        window.lstResults.userSelected(row);
        program.platform.expectBox(question, answer);
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

TEST_F(Drop, TakesTheRowAwayAndTheButtonsFollow) {
    program.db->succeeds("drop table `d`.`users`");
    press(0, BoxCode::yesPressed);
    EXPECT_EQ(window.lstResults.ListIndex, -1);
    EXPECT_EQ(state(), "log a`b | View Script, ");
}

// The row is that which is selected once the question has been answered.
TEST_F(Drop, ReadsTheSelectionAfterTheQuestion) {
    program.db->succeeds("drop table `d`.`log`");
    program.platform.whileBoxIsOpen = [this] {
        baton::Hold hold;
        window.lstResults.userSelected(1);
    };
    press(0, BoxCode::yesPressed);
    EXPECT_EQ(state(), "users a`b | View Script, ");
}

TEST_F(Drop, ARefusalShowsTheServersWordsAndChangesNothing) {
    for (const char* table : {"users", "a`b"})
        program.db->fails("drop table `d`.`" + std::string(table) + "`", "DROP command denied");
    for (int row : {0, 0, 2}) {
        window.lstResults.userSelected(row);
        program.platform.expectBox(question, BoxCode::yesPressed);
        program.platform.expectBox("DROP command denied");
        window.butDropTable.userPressed();
        EXPECT_EQ(window.lstResults.ListIndex, row);
        EXPECT_EQ(state(), "users log a`b | Drop Table, View Data, " +
                               std::string(row == 0 ? "View Script, " : ""));
    }
    EXPECT_EQ(program.platform.boxCodes, (std::vector<int>{36, 16, 36, 16, 36, 16}));
    EXPECT_EQ(program.db->statements,
              (std::vector<std::string>{"drop table `d`.`users`", "drop table `d`.`users`",
                                        "drop table `d`.`a`b`"}));
}

}  // namespace
}  // namespace bracken
