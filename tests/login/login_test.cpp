#include <gtest/gtest.h>

#include <optional>

#include "program/login/win_login.h"
#include "program/results/win_results.h"
#include "tests/support/outcome.h"
#include "tests/support/program.h"
#include "tests/support/temp_folder.h"

namespace bracken {
namespace {

using test::Program;

std::string text(const std::string& key, const std::string& value) {
    return "<key>" + key + "</key>\n<string>" + value + "</string>\n";
}

std::string flag(const std::string& key, bool value) {
    return "<key>" + key + "</key>\n<" + (value ? "true" : "false") + "/>\n";
}

const std::string storedLogin = text("host", "h") + text("user", "u") + text("password", "p");

class Login : public testing::Test {
  protected:
    // Starts the program with these settings.
    class winLogin& start(const std::string& settings = "") {
        program.emplace(settings);
        program->db->answers("show databases", {"Database"},
                             {{"mysql"}, {"shop"}, {"Shop"}, {"x"}});
        return bracken::winLogin();
    }
    static void type(class winLogin& window, const std::string& host, const std::string& user,
                     const std::string& password = "") {
        window.fldHost.userEdited(host);
        window.fldUserName.userEdited(user);
        window.fldPassword.userEdited(password);
    }
    // Height, whether Go! can be pressed, and which button Return means.
    static std::string state(class winLogin& window) {
        std::string shown = std::to_string(window.Height);
        if (window.butGo.Enabled) shown += " go";
        shown += window.butConnect.Default ? " connect" : "";
        return shown + (window.butGo.Default ? " default" : "");
    }

    std::optional<Program> program;
    test::TempFolder folder;
};

TEST_F(Login, OpensWithWhatIsStored) {
    struct Case {
        std::string settings;
        bool remember;
        std::string fields;
        bool connect;
        std::string folder;
        bool go;
    };
    const Case cases[] = {
        {"", true, "//", false, "None", false},
        {flag("remember", true) + storedLogin, true, "h/u/p", true, "None", false},
        {storedLogin + text("current folder", "/src"), true, "h/u/p", true, "/src", true},
        {flag("remember", false) + storedLogin, false, "//", false, "None", false},
        {text("host", "h") + text("current folder", "none"), true, "h//", false, "none", false},
        {text("host", "h") + text("user", "u"), true, "h/u/", true, "None", false}};
    for (const Case& one : cases) {
        auto& window = start(one.settings);
        EXPECT_EQ(window.chkRemember.Value, one.remember);
        EXPECT_EQ(window.fldHost.Text.get() + "/" + window.fldUserName.Text.get() + "/" +
                      window.fldPassword.Text.get(),
                  one.fields);
        EXPECT_EQ(window.butConnect.Enabled, one.connect) << one.settings;
        EXPECT_EQ(window.lblCurrentFolder.Caption.get(), one.folder);
        EXPECT_EQ(state(window), one.go ? "185 go connect" : "185 connect") << one.settings;
        program.reset();
    }
}

TEST_F(Login, ConnectNeedsAHostAndAUser) {
    auto& window = start();
    for (const auto& [host, user, password, enabled] : {std::tuple("h", "", "", false),
                                                        {"h", "u", "", true},
                                                        {"", "u", "p", false},
                                                        {" ", "u", "", true}}) {
        type(window, host, user, password);
        EXPECT_EQ(window.butConnect.Enabled, enabled) << host << user;
    }
}

TEST_F(Login, TheLoginIsStoredOrWipedBeforeItIsTried) {
    for (bool remember : {true, false}) {
        auto& window = start(storedLogin);
        window.chkRemember.userToggled(remember);
        type(window, "db.example", "<root>");
        program->db->refusesConnect("Access denied");
        program->db->meanwhile = [&] {
            EXPECT_EQ(Program::saved("host"), remember ? "db.example" : "");
            EXPECT_EQ(Program::saved("user"), remember ? "<root>" : "");
            EXPECT_EQ(Program::saved("password"), "");
            EXPECT_EQ(Program::saved("remember"), remember ? "true" : "false");
            EXPECT_EQ(Program::saved("current folder"), "None");
            EXPECT_TRUE(window.ProgressWheel1.Visible);
        };
        program->platform.expectBox("Access denied");
        program->platform.whileBoxIsOpen = [&] {
            baton::Hold hold;
            EXPECT_TRUE(window.ProgressWheel1.Visible);
        };
        window.userPressedReturn();
        EXPECT_EQ(program->db->logins, test::Row{"<root>:@db.example"});
        EXPECT_FALSE(window.ProgressWheel1.Visible);
        EXPECT_EQ(state(window), "185 connect");
        EXPECT_EQ(window.popChooseDatabase.ListCount(), 0);
        program.reset();
    }
}

TEST_F(Login, ConnectListsTheDatabasesAndPreselectsTheLast) {
    struct Case {
        std::string settings;
        int row;
        std::string state;
    };
    const Case cases[] = {
        {"", 0, "225 default"},
        {text("database", "gone"), 0, "225 default"},
        {text("current folder", "/src"), 0, "225 default"},
        {text("database", "mysql"), 1, "400 connect"},
        {text("database", "SHOP"), 3, "400 connect"},
        {text("database", "x") + text("current folder", "/src"), 4, "400 go default"}};
    for (const Case& one : cases) {
        auto& window = start(one.settings + storedLogin);
        EXPECT_EQ(test::yieldsOf([&] { window.butConnect.userPressed(); }), 4);
        EXPECT_EQ(window.popChooseDatabase.ListIndex, one.row) << one.settings;
        EXPECT_EQ(state(window), one.state) << one.settings;
        EXPECT_EQ(window.popChooseDatabase.List(0), "Choose a Database...");
        EXPECT_EQ(window.popChooseDatabase.ListCount(), 5);
        EXPECT_EQ(program->db->openCursors, 0);
        EXPECT_TRUE(program->db->databaseNames.empty());
        EXPECT_TRUE(App().prefs->root->Exists("database"));
        program.reset();
    }
}

TEST_F(Login, ChoosingADatabaseGrowsTheWindow) {
    auto& window = start(storedLogin + text("current folder", "/src"));
    window.butConnect.userPressed();
    window.popChooseDatabase.userChose(2);
    EXPECT_EQ(state(window), "400 go default");
    window.popChooseDatabase.userChose(0);
    EXPECT_EQ(state(window), "225 default");
}

TEST_F(Login, AFailureAfterConnectingLeavesTheListAlone) {
    auto& window = start(storedLogin + text("database", "x"));
    window.butConnect.userPressed();
    program->db->fails("show databases", "gone away");
    program->platform.expectBox("gone away");
    window.butConnect.userPressed();
    EXPECT_EQ(window.popChooseDatabase.ListCount(), 5);
    EXPECT_EQ(state(window), "400 connect");
    EXPECT_FALSE(window.ProgressWheel1.Visible);

    program->db->succeeds("show databases");
    EXPECT_EQ(test::endOf([&] { window.butConnect.userPressed(); }),
              "NilObjectException: The server sent no result for: show databases");
    EXPECT_EQ(window.popChooseDatabase.ListCount(), 1);
}

TEST_F(Login, AFolderIsRememberedAtOnce) {
    auto& window = start(storedLogin + text("database", "shop"));
    window.butConnect.userPressed();
    program->platform.expectFolder("");
    window.butSelectFolder.userPressed();
    EXPECT_EQ(state(window), "400 connect");
    EXPECT_EQ(Program::saved("current folder"), "None");
    program->platform.expectFolder(folder.path());
    window.butSelectFolder.userPressed();
    EXPECT_EQ(state(window), "400 go connect");
    EXPECT_EQ(window.lblCurrentFolder.Caption.get(), folder.path());
    EXPECT_EQ(Program::saved("current folder"), folder.path());
    EXPECT_EQ(Program::saved("database"), "shop") << "as it was";
}

class Launch : public Login {
  protected:
    // Presses Go! for the database "x" and that folder, and sees the run to its end.
    void go(const std::string& path, const std::vector<std::string>& boxes) {
        auto& window = start(storedLogin + text("database", "shop") + text("current folder", path));
        window.butConnect.userPressed();
        window.popChooseDatabase.userChose(4);
        program->db->answers("show tables in x", {"Tables_in_x"}, {{"users"}});
        for (const std::string& box : boxes) program->platform.expectBox(box);
        window.butGo.userPressed();
        test::runUntil([] { return !Thread::anyRunning(); });
        EXPECT_EQ(state(window), "400 go default");
    }
};

TEST_F(Launch, StoresTheDatabaseAndRuns) {
    folder.write("a.php", "users");
    go(folder.path(), {"Finished"});
    EXPECT_EQ(Program::saved("database"), "x");
    EXPECT_EQ(std::string(winResults().lstResults.Cell(0, 1)), "a.php,");
    EXPECT_EQ(program->db->databaseNames, test::Row{"x"});
}

TEST_F(Launch, AFolderThatIsGoneIsOnlyWarnedOf) {
    go(folder.path("gone"), {"Your chosen folder can't be found.", "Finished"});
    EXPECT_EQ(Program::saved("database"), "shop");
    EXPECT_EQ(std::string(winResults().lstResults.Cell(0, 1)), "Not Found Yet");
}

TEST_F(Launch, APathThatIsNoneEndsTheProgram) {
    go("relative", {"Your chosen folder can't be found.",
                    "The application has to end: an error occurred that nothing handles.\n\n"
                    "NilObjectException: Not an absolute path: \"relative\""});
    EXPECT_EQ(program->platform.abortStatus, 1);
    EXPECT_EQ(Program::saved("database"), "shop");
}

}  // namespace
}  // namespace bracken
