#include "program/login/win_login.h"

#include "program/results/win_results.h"
#include "tests/support/outcome.h"
#include "tests/support/program.h"
#include "tests/support/temp_folder.h"

namespace bracken::test {

std::string text(const std::string& key, const std::string& value) {
    return "<key>" + key + "</key>\n<string>" + value + "</string>\n";
}

const std::string forget = "<key>remember</key>\n<false/>\n";
const std::string storedLogin = text("host", "h") + text("user", "u") + text("password", "p");

class Login : public testing::Test {
  protected:
    // Starts the program with these settings.
    class winLogin& start(const std::string& settings = "") {
        program.reset();
        program.emplace(settings);
        program->db->answers("show databases", {"Database"},
                             {{"mysql"}, {"shop"}, {"Shop"}, {"x"}});
        return winLogin();
    }
    // Height, whether Go! can be pressed, and which button Return means.
    static std::string state() {
        class winLogin& window = winLogin();
        return std::to_string(window.Height) + (window.butGo.Enabled ? " go" : "") +
               (window.butConnect.Default ? " connect" : "") +
               (window.butGo.Default ? " default" : "");
    }

    std::optional<Program> program;
    TempFolder folder;
};

TEST_F(Login, OpensWithWhatIsStoredAndNeedsAHostAndAUser) {
    struct Case {
        std::string settings, fields, state;
        bool connect;
    };
    for (const Case& one :
         {Case{"", "//:None, remembered", "185 connect", false},
          {storedLogin + text("current folder", "/src"), "h/u/p:/src, remembered", "185 go connect",
           true},
          {forget + storedLogin, "//:None", "185 connect", false},
          {text("host", "h") + text("current folder", "none"), "h//:none, remembered",
           "185 connect", false},
          {text("user", "u"), "/u/:None, remembered", "185 connect", false},
          {text("host", " ") + text("user", "u"), " /u/:None, remembered", "185 connect", true}}) {
        auto& window = start(one.settings);
        EXPECT_EQ(window.fldHost.Text.get() + "/" + window.fldUserName.Text.get() + "/" +
                      window.fldPassword.Text.get() + ":" + window.lblCurrentFolder.Caption.get() +
                      (window.chkRemember.Value ? ", remembered" : ""),
                  one.fields);
        EXPECT_EQ(state(), one.state);
        EXPECT_EQ(window.butConnect.Enabled, one.connect) << one.settings;
        window.fldHost.userEdited("db");
        window.fldUserName.userEdited("");
        EXPECT_FALSE(window.butConnect.Enabled);
        window.fldUserName.userEdited("me");
        EXPECT_TRUE(window.butConnect.Enabled);
    }
}

TEST_F(Login, TheLoginIsStoredOrWipedBeforeItIsTried) {
    for (bool remember : {true, false}) {
        auto& window = start(storedLogin);
        window.chkRemember.userToggled(remember);
        window.fldUserName.userEdited("<root>");
        program->db->connectRefusal = "Access denied";
        program->db->meanwhile = [&] {
            for (const auto& [key, stored] : {std::pair("host", "h"),
                                              {"user", "<root>"},
                                              {"password", "p"},
                                              {"remember", "true"}})
                EXPECT_EQ(Program::saved(key), remember ? stored : key[0] == 'r' ? "false" : "");
            EXPECT_EQ(Program::saved("current folder"), "None");
            EXPECT_TRUE(window.ProgressWheel1.Visible);
        };
        program->platform.expectBox("Access denied");
        program->platform.whileBoxIsOpen = [&] {
            const baton::Hold hold;
            EXPECT_TRUE(window.ProgressWheel1.Visible);
        };
        window.userPressedReturn();
        EXPECT_EQ(program->db->logins, Row{"<root>:p@h"});
        EXPECT_FALSE(window.ProgressWheel1.Visible);
        EXPECT_EQ(state(), "185 connect");
        EXPECT_EQ(window.popChooseDatabase.ListCount(), 0);
    }
}

TEST_F(Login, ConnectListsTheDatabasesAndPreselectsTheLast) {
    for (const auto& [settings, row, shown] :
         {std::tuple(std::string(), 0, "225 default"),
          {text("database", "gone"), 0, "225 default"},
          {text("current folder", "/src"), 0, "225 default"},
          {text("database", "SHOP"), 3, "400 connect"},
          {text("database", "x") + text("current folder", "/src"), 4, "400 go default"}}) {
        auto& window = start(settings + storedLogin);
        EXPECT_EQ(yieldsOf([&] { winLogin().butConnect.userPressed(); }), 4);
        EXPECT_EQ(window.popChooseDatabase.ListIndex, row) << settings;
        EXPECT_EQ(state(), shown) << settings;
        EXPECT_EQ(window.popChooseDatabase.List(0), "Choose a Database...");
        EXPECT_EQ(window.popChooseDatabase.ListCount(), 5);
        EXPECT_EQ(program->db->openCursors, 0);
        EXPECT_TRUE(program->db->databaseNames.empty());
        EXPECT_TRUE(App().prefs->root->Exists("database"));
    }
    for (const auto& [row, shown] : {std::pair(0, "225 default"), {2, "400 go default"}}) {
        winLogin().popChooseDatabase.userChose(row);
        EXPECT_EQ(state(), shown);
    }
}

TEST_F(Login, AFailureAfterConnectingLeavesTheListAlone) {
    auto& window = start(storedLogin + text("database", "x"));
    window.butConnect.userPressed();
    program->db->fails("show databases", "gone away");
    program->platform.expectBox("gone away");
    window.butConnect.userPressed();
    EXPECT_EQ(window.popChooseDatabase.ListCount(), 5);
    EXPECT_EQ(state(), "400 connect");
    EXPECT_FALSE(window.ProgressWheel1.Visible);
    program->db->succeeds("show databases");
    EXPECT_THROW(window.butConnect.userPressed(), NilObjectException);
}

TEST_F(Login, AFolderIsRememberedAtOnce) {
    auto& window = start(storedLogin + text("database", "shop"));
    window.butConnect.userPressed();
    for (const auto& [chosen, stored, shown] :
         {std::tuple(std::string(), std::string("None"), "400 connect"),
          {folder.path(), folder.path(), "400 go connect"}}) {
        program->platform.folders.push_back(chosen);
        window.butSelectFolder.userPressed();
        EXPECT_EQ(state(), shown);
        EXPECT_EQ(window.lblCurrentFolder.Caption.get(), stored);
        EXPECT_EQ(Program::saved("current folder"), stored);
        EXPECT_EQ(Program::saved("database"), "shop") << "as it was";
    }
}

TEST_F(Login, GoRunsAndWarnsOfAFolderThatIsGone) {
    folder.write("a.php", "users");
    const std::string warning = "Your chosen folder can't be found.";
    for (const auto& [path, boxes, database, found] :
         {std::tuple(folder.path(), Row{"Finished"}, "x", "a.php,"),
          {folder.path("gone"), {warning, "Finished"}, "shop", "Not Found Yet"}}) {
        auto& window = start(storedLogin + text("database", "shop") + text("current folder", path));
        window.butConnect.userPressed();
        window.popChooseDatabase.userChose(4);
        program->db->answers("show tables in x", {"Tables_in_x"}, {{"users"}});
        for (const std::string& box : boxes) program->platform.expectBox(box);
        window.butGo.userPressed();
        runUntil([] { return !Thread::anyRunning(); });
        EXPECT_EQ(state(), "400 go default");
        EXPECT_EQ(Program::saved("database"), database);
        EXPECT_EQ(winResults().lstResults.cellText(0, 1), found);
        EXPECT_EQ(program->db->databaseNames, Row{"x"});
    }
}

}  // namespace bracken::test
