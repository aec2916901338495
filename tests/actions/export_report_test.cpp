#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdlib>

#include "framework/files/special_folder.h"
#include "program/actions/win_confirm.h"
#include "tests/actions/opened_results.h"
#include "tests/support/temp_folder.h"

namespace bracken {
namespace {

using Rows = std::vector<std::vector<std::string>>;

struct FilesCase {
    const char* name;
    Rows rows;
    std::string exported;
    std::string reportRows;
};

// The same rows, exported and reported.
class Files : public testing::TestWithParam<FilesCase>, protected test::OpenedResults {
  protected:
    test::TempFolder folder;
};

const FilesCase filesCases[] = {
    {"EmptyList", {}, "", ""},
    {"FoundAndNot",
     {{"users", "a.php,b.php,"}, {"log", "Not Found Yet"}},
     "users\ta.php,b.php,\nlog\tNot Found Yet\n",
     "<tr><td>users</td><td>a.php,b.php,</td></tr><tr><td>log</td><td>Not Found Yet</td></tr>"},
    {"TabsAndMarkup",
     {{"a\tb", "<i>&.php,"}, {"\"q\"", "x\ty\n,"}},
     "a\tb\t<i>&.php,\n\"q\"\tx\ty\n,\n",
     "<tr><td>a\tb</td><td><i>&.php,</td></tr><tr><td>\"q\"</td><td>x\ty\n,</td></tr>"},
    {"AnyBytes",
     {{"t\xff\xc3", std::string("a\0b.php,", 8)}},
     std::string("t\xff\xc3\ta\0b.php,\n", 13),
     std::string("<tr><td>t\xff\xc3</td><td>a\0b.php,</td></tr>", 38)}};

TEST_P(Files, HoldTheListByteForByte) {
    show(GetParam().rows);
    program.platform.expectSave(folder.path("list"));
    program.platform.expectBox("Your file has been saved");
    window.butExport.userPressed();
    EXPECT_EQ(folder.read("list"), GetParam().exported);

    App().prefs->root->SetBoolean("no warning", true);
    window.butPrint.userPressed();
    ASSERT_EQ(program.platform.launched.size(), 1U);
    std::string path =
        SpecialFolder::ApplicationData()->AbsolutePath() + "/Bracken Lens/report.html";
    EXPECT_EQ(program.platform.launched[0], path);
    std::ifstream file(path, std::ios::binary);
    std::string report((std::istreambuf_iterator<char>(file)), {});
    EXPECT_EQ(report,
              "<html><bod><table cellspacing=0 border><tr><th>Table</th><th>Found In</th></tr>" +
                  GetParam().reportRows + "</table></body></html>");
}

INSTANTIATE_TEST_SUITE_P(Actions, Files, testing::ValuesIn(filesCases),
                         [](const auto& files) { return std::string(files.param.name); });

class Export : public testing::Test, protected test::OpenedResults {
  protected:
    test::TempFolder folder;
};

TEST_F(Export, AsksInTheDocumentsFolderEachTime) {
    for (int time = 0; time < 2; time++) {
        program.platform.expectSave("");
        window.butExport.userPressed();
        SaveQuestion asked = program.platform.saveQuestions.back();
        EXPECT_EQ(asked.folder, SpecialFolder::Documents()->AbsolutePath());
        EXPECT_EQ(asked.title + "|" + asked.prompt + "|" + asked.name + "|" + asked.filter,
                  "Export as CSV|Save File|results.csv|csv");
    }
}

TEST_F(Export, ReplacesAFileAndKeepsToTheRowsThatAreLeft) {
    show({{"users", "a.php,"}, {"log", "Not Found Yet"}});
    window.butNotFound.Enabled = true;
    window.butNotFound.userPressed();
    program.platform.expectSave(folder.write("old.csv", "a longer text than the new one"));
    program.platform.expectBox("Your file has been saved");
    window.butExport.userPressed();
    EXPECT_EQ(folder.read("old.csv"), "log\tNot Found Yet\n");
}

TEST_F(Export, EndsWhereTheFileCannotBeMade) {
    show({{"users", "a.php,"}});
    for (bool empty : {false, true}) {
        if (empty) window.lstResults.DeleteAllRows();
        program.platform.expectSave(folder.path("missing/list.csv"));
        EXPECT_THROW(window.butExport.userPressed(), NilObjectException);
    }
}

// Makes every file of the process end at this size for a scope, as a full disk would.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) {
        signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limited{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
};

TEST_F(Export, AFullDiskLeavesTheOldFile) {
    show({{std::string(100'000, 'x'), "a.php,"}});
    program.platform.expectSave(folder.write("old.csv", "kept"));
    program.platform.expectBox("Your file has been saved");
    {
        FullDisk disk(50'000);
        window.butExport.userPressed();
    }
    EXPECT_EQ(folder.read("old.csv"), "kept");
}

struct Answer {
    const char* name;
    bool ticked;
    const char* button;
    int launches;
    const char* saved;
};

class Report : public testing::Test, protected test::OpenedResults {
  protected:
    void print(const Answer& answer) {
        program.platform.expectModal([=](const Window& shown) {
            auto& question = winConfirm();
            ASSERT_EQ(&question, &shown);
            EXPECT_FALSE(question.CheckBox1.Value);
            EXPECT_EQ(question.defaultButton(), &question.butYes);
            question.CheckBox1.userToggled(answer.ticked);
            if (answer.button == std::string("box"))
                question.userClosed();
            else
                dynamic_cast<PushButton*>(question.control(answer.button))->userPressed();
        });
        window.butPrint.userPressed();
    }
};

TEST_F(Report, TheQuestionAndItsAnswers) {
    const Answer answers[] = {{"no", false, "butNO", 0, "none"},
                              {"ticked no", true, "butNO", 0, "none"},
                              {"ticked, closed", true, "box", 0, "none"},
                              {"yes", false, "butYes", 1, "none"},
                              {"ticked yes", true, "butYes", 2, "true"}};
    for (const Answer& answer : answers) {
        SCOPED_TRACE(answer.name);
        print(answer);
        EXPECT_EQ(program.platform.launched.size(), static_cast<size_t>(answer.launches));
        EXPECT_EQ(test::Program::saved("no warning"), answer.saved);
        EXPECT_EQ(opened("Untitled"), nullptr);
    }
    // From now on nobody is asked: a modal window would fail the test.
    window.butPrint.userPressed();
    EXPECT_EQ(program.platform.launched.size(), 3U);
}

TEST_F(Report, MakesItsFolderForTheUserAlone) {
    App().prefs->root->SetBoolean("no warning", true);
    std::string folder = SpecialFolder::ApplicationData()->AbsolutePath() + "/Bracken Lens";
    std::filesystem::remove_all(folder);
    window.butPrint.userPressed();
    struct stat facts {};
    ASSERT_EQ(stat(folder.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0700U);
}

TEST_F(Report, EndsWhereTheFileCannotBeMade) {
    App().prefs->root->SetBoolean("no warning", true);
    std::string folder = SpecialFolder::ApplicationData()->AbsolutePath() + "/Bracken Lens";
    std::filesystem::remove_all(folder);
    std::ofstream(folder) << "a file in its place";
    EXPECT_THROW(window.butPrint.userPressed(), NilObjectException);
    EXPECT_TRUE(program.platform.launched.empty());
    std::filesystem::remove(folder);
}

}  // namespace
}  // namespace bracken
