#include "framework/files/special_folder.h"
#include "program/actions/win_confirm.h"
#include "tests/actions/opened_results.h"

namespace bracken::test {

class Actions : public OpenedResults {
  protected:
    // The tables listed, in order, and then the buttons that follow the selection.
    std::string state() const {
        std::string text;
        for (int row = 0; row < window.lstResults.ListCount(); row++)
            text += std::string(window.lstResults.Cell(row, 0)) + " ";
        for (PushButton* button : {&window.butDropTable, &window.butViewScript})
            if (button->Enabled) text += "| " + button->Caption.get();
        return text;
    }
    std::string exported() {
        program.platform.saves.push_back(folder.path("list"));
        program.platform.expectBox("Your file has been saved");
        window.butExport.userPressed();
        return folder.read("list");
    }
    // Presses Print, ticks the question's box if asked to, and answers it by a button or its frame.
    void print(bool ticked, const std::string& button) {
        program.platform.modals.emplace_back([=](const Window& shown) {
            auto& question = winConfirm();
            ASSERT_EQ(&question, &shown);
            EXPECT_FALSE(question.CheckBox1.Value);
            EXPECT_EQ(question.defaultButton(), &question.butYes);
            question.CheckBox1.userToggled(ticked);
            if (button == "frame")
                question.userClosed();
            else
                dynamic_cast<PushButton*>(question.control(button))->userPressed();
        });
        window.butPrint.userPressed();
    }

    const std::string reports = SpecialFolder::ApplicationData()->AbsolutePath() + "/Bracken Lens";
};

TEST_F(Actions, DropAsksEachTimeAndTakesTheRowAwayIfTheServerHasDroppedTheTable) {
    App().prefs->root->SetBoolean("no warning", true);
    show("users", "a.php,");
    show("a`b", "Not Found Yet");
    show("log", "Not Found Yet");
    const std::string all = "users a`b log | Drop Table";
    for (const auto& [row, answer, refusal, after] :
         {std::tuple(0, BoxCode::noPressed, "", all + "| View Script"),
          {1, BoxCode::noPressed, "", all},
          {1, BoxCode::yesPressed, "DROP command denied", all},
          {0, BoxCode::yesPressed, "", "a`b log | View Script"},
          {0, BoxCode::yesPressed, "", "log | View Script"}}) {
        window.lstResults.userSelected(row);
        const std::string statement = "drop table `d`.`" + window.lstResults.Text() + "`";
        program.db->succeeds(statement);
        program.platform.expectBox("Are you sure you wish to drop this table from the database?",
                                   answer);
        if (*refusal != '\0') {
            program.db->fails(statement, refusal);
            program.platform.expectBox(refusal);
        }
        window.butDropTable.userPressed();
        EXPECT_EQ(state(), after);
    }
    EXPECT_EQ(program.platform.boxCodes, (std::vector<int>{36, 36, 36, 16, 36, 36}));
    EXPECT_EQ(program.db->statements,
              (Row{"drop table `d`.`a`b`", "drop table `d`.`users`", "drop table `d`.`a`b`"}));
}

TEST_F(Actions, DropTakesTheRowThatIsSelectedOnceTheQuestionIsAnswered) {
    show("users", "a.php,");
    show("log", "Not Found Yet");
    window.lstResults.userSelected(0);
    program.db->succeeds("drop table `d`.`log`");
    program.platform.expectBox("Are you sure you wish to drop this table from the database?",
                               BoxCode::yesPressed);
    program.platform.whileBoxIsOpen = [this] {
        const baton::Hold hold;
        window.lstResults.userSelected(1);
    };
    window.butDropTable.userPressed();
    EXPECT_EQ(state(), "users | View Script");
}

TEST_F(Actions, ExportAndReportHoldTheListByteForByte) {
    App().prefs->root->SetBoolean("no warning", true);
    folder.write("list", "a longer text than the new one");
    const std::string head =
        "<html><bod><table cellspacing=0 border><tr><th>Table</th><th>Found In</th></tr>";
    std::string list, rows;
    for (const auto& [table, files] : {std::pair<std::string, std::string>("users", "a.php,b.php,"),
                                       {"log", "Not Found Yet"},
                                       {"a\tb", "<i>&.php,"},
                                       {"\"t\xff\xc3", std::string("a\0b\n,", 5)}}) {
        EXPECT_EQ(yieldsOf([&] { EXPECT_EQ(exported(), list); }), window.lstResults.ListCount() + 2)
            << "two for the dialogs";
        EXPECT_EQ(yieldsOf([&] { window.butPrint.userPressed(); }), window.lstResults.ListCount());
        ASSERT_EQ(program.platform.launched.back(), reports + "/report.html");
        std::ifstream file(reports + "/report.html", std::ios::binary);
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}),
                  head + rows + "</table></body></html>");
        show(table, files);
        list += table + "\t" + files + "\n";
        rows += "<tr><td>" + table + "</td><td>" + files + "</td></tr>";
    }
    const SaveQuestion& asked = program.platform.saveQuestions.back();
    EXPECT_EQ(asked.folder, SpecialFolder::Documents()->AbsolutePath());
    EXPECT_EQ(asked.title + "|" + asked.prompt + "|" + asked.name + "|" + asked.filter,
              "Export as CSV|Save File|results.csv|csv");
}

TEST_F(Actions, ExportAndReportEndWhereTheyCannotBeMade) {
    program.platform.saves.push_back("");
    window.butExport.userPressed();
    program.platform.saves.push_back(folder.path("missing/list.csv"));
    EXPECT_THROW(window.butExport.userPressed(), NilObjectException);
    App().prefs->root->SetBoolean("no warning", true);
    std::filesystem::remove_all(reports);
    window.butPrint.userPressed();
    EXPECT_EQ(std::filesystem::status(reports).permissions(), std::filesystem::perms::owner_all);
    std::filesystem::remove_all(reports);
    std::ofstream(reports) << "a file in its place";
    EXPECT_THROW(window.butPrint.userPressed(), NilObjectException);
    EXPECT_EQ(program.platform.launched.size(), 1U);
    std::filesystem::remove(reports);
}

TEST_F(Actions, TheQuestionBeforeAReportAndItsAnswers) {
    for (const auto& [ticked, button, launches, saved] : {std::tuple(true, "butNO", 0U, "none"),
                                                          {true, "frame", 0U, "none"},
                                                          {false, "butYes", 1U, "none"},
                                                          {true, "butYes", 2U, "true"}}) {
        print(ticked, button);
        EXPECT_EQ(program.platform.launched.size(), launches) << button;
        EXPECT_EQ(Program::saved("no warning"), saved);
        EXPECT_FALSE(isOpen("Untitled"));
    }
    // From now on nobody is asked: a modal window would fail the test.
    window.butPrint.userPressed();
    EXPECT_EQ(program.platform.launched.size(), 3U);
}

}  // namespace bracken::test
