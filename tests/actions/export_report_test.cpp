#include "framework/files/special_folder.h"
#include "program/actions/win_confirm.h"
#include "tests/actions/opened_results.h"

namespace bracken::test {
namespace {

// The list exported, and reported.
class Files : public OpenedResults {
  protected:
    std::string exported() {
        program.platform.expectSave(folder.path("list"));
        program.platform.expectBox("Your file has been saved");
        window.butExport.userPressed();
        return folder.read("list");
    }
    // Presses Print, ticks the question's box if asked to, and answers it by a button or its frame.
    void print(bool ticked, const std::string& button) {
        program.platform.expectModal([=](const Window& shown) {
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

TEST_F(Files, HoldTheListByteForByte) {
    struct Case {
        const char* name;
        std::vector<Row> rows;
        std::string exported, reported;
    };
    const Case cases[] = {
        {"nothing", {}, "", ""},
        {"found and not",
         {{"users", "a.php,b.php,"}, {"log", "Not Found Yet"}},
         "users\ta.php,b.php,\nlog\tNot Found Yet\n",
         "<tr><td>users</td><td>a.php,b.php,</td></tr><tr><td>log</td><td>Not Found Yet</td></tr>"},
        {"tabs and markup",
         {{"a\tb", "<i>&.php,"}, {"\"q\"", "x\ty\n,"}},
         "a\tb\t<i>&.php,\n\"q\"\tx\ty\n,\n",
         "<tr><td>a\tb</td><td><i>&.php,</td></tr><tr><td>\"q\"</td><td>x\ty\n,</td></tr>"},
        {"any bytes",
         {{"t\xff\xc3", std::string("a\0b.php,", 8)}},
         std::string("t\xff\xc3\ta\0b.php,\n", 13),
         std::string("<tr><td>t\xff\xc3</td><td>a\0b.php,</td></tr>", 38)}};
    App().prefs->root->SetBoolean("no warning", true);
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        window.lstResults.DeleteAllRows();
        show(one.rows);
        EXPECT_EQ(exported(), one.exported);
        window.butPrint.userPressed();
        ASSERT_EQ(program.platform.launched.back(), reports + "/report.html");
        std::ifstream file(reports + "/report.html", std::ios::binary);
        EXPECT_EQ(
            std::string(std::istreambuf_iterator<char>(file), {}),
            "<html><bod><table cellspacing=0 border><tr><th>Table</th><th>Found In</th></tr>" +
                one.reported + "</table></body></html>");
    }
}

TEST_F(Files, AnExportAsksInTheDocumentsFolderEachTime) {
    for (int time = 0; time < 2; time++) {
        program.platform.expectSave("");
        window.butExport.userPressed();
        const SaveQuestion& asked = program.platform.saveQuestions.back();
        EXPECT_EQ(asked.folder, SpecialFolder::Documents()->AbsolutePath());
        EXPECT_EQ(asked.title + "|" + asked.prompt + "|" + asked.name + "|" + asked.filter,
                  "Export as CSV|Save File|results.csv|csv");
    }
}

TEST_F(Files, AnExportReplacesAFileAndKeepsToTheRowsThatAreLeft) {
    show({{"users", "a.php,"}, {"log", "Not Found Yet"}});
    window.butNotFound.Enabled = true;
    window.butNotFound.userPressed();
    folder.write("list", "a longer text than the new one");
    EXPECT_EQ(exported(), "log\tNot Found Yet\n");
}

TEST_F(Files, EndWhereTheyCannotBeMade) {
    show({{"users", "a.php,"}});
    for (bool empty : {false, true}) {
        if (empty) window.lstResults.DeleteAllRows();
        program.platform.expectSave(folder.path("missing/list.csv"));
        EXPECT_THROW(window.butExport.userPressed(), NilObjectException);
    }
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

TEST_F(Files, TheQuestionBeforeAReportAndItsAnswers) {
    for (const auto& [ticked, button, launches, saved] : {std::tuple(false, "butNO", 0U, "none"),
                                                          {true, "butNO", 0U, "none"},
                                                          {true, "frame", 0U, "none"},
                                                          {false, "butYes", 1U, "none"},
                                                          {true, "butYes", 2U, "true"}}) {
        SCOPED_TRACE(std::string(button) + (ticked ? ", ticked" : ""));
        print(ticked, button);
        EXPECT_EQ(program.platform.launched.size(), launches);
        EXPECT_EQ(Program::saved("no warning"), saved);
        EXPECT_EQ(opened("Untitled"), nullptr);
    }
    // From now on nobody is asked: a modal window would fail the test.
    window.butPrint.userPressed();
    EXPECT_EQ(program.platform.launched.size(), 3U);
}

}  // namespace
}  // namespace bracken::test
