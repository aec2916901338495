#include "framework/windows/event.h"
#include "program/actions/win_preferences.h"
#include "program/login/win_login.h"
#include "tests/support/program.h"

namespace bracken::test {

class AppTest : public testing::Test {
  protected:
    AppTest() {
        program.app.addMenuHandler("Preferences",
                                   [this] { return program.app._Preferences_Action(); });
    }
    std::string enabled() {
        program.app.updateMenus();
        std::string names;
        for (auto& menu : program.app.MenuBar->items())
            for (auto& item : menu->items())
                if (item->Enabled && item->Text != "-") names += item->Name + " ";
        return names;
    }
    class winPreferences& preferences() {
        program.app.userChoseMenu("Preferences");
        return dynamic_cast<class winPreferences&>(*Windows::get().front());
    }

    Program program;
};

TEST_F(AppTest, MenusAreEnabledForTheWindowInFront) {
    EXPECT_EQ(enabled(), "FileQuit Preferences ");
    winLogin();
    program.platform.offered = "EditCopy";
    EXPECT_EQ(enabled(), "FileClose FileQuit EditCopy Preferences ");
    for (const char* item : {"EditCopy", "EditPaste", "FileClose"}) program.app.userChoseMenu(item);
    EXPECT_EQ(program.platform.performed, Row{"EditCopy"});
    EXPECT_TRUE(Windows::get().all().empty());
}

TEST_F(AppTest, WhatGoesWrongIsShown) {
    EXPECT_FALSE(App().CheckError());
    program.db->Error = true;
    program.db->ErrorMessage = "Table 'x' doesn't exist";
    program.platform.expectBox("Table 'x' doesn't exist");
    EXPECT_TRUE(App().CheckError());
    program.platform.expectBox(
        "The application has to end: an error occurred that nothing handles.\n\n"
        "KeyNotFoundException: host");
    handleEvent([] { throw KeyNotFoundException("host"); });
    EXPECT_EQ(program.platform.abortStatus, 1);
}

TEST_F(AppTest, ThePreferencesWindowKeepsTheExtensionList) {
    auto& first = preferences();
    first.EditField1.userEdited(" .PHP;cgi, ");
    winLogin();
    EXPECT_EQ(&preferences(), &first) << "the one that is open, in front again";
    first.butCancel.userPressed();
    for (const auto& [before, after] : {std::pair("", " .PHP;cgi, "), {" .PHP;cgi, ", ""}}) {
        EXPECT_EQ(preferences().EditField1.Text.get(), before);
        preferences().EditField1.userEdited(after);
        preferences().userPressedReturn();
        EXPECT_EQ(Windows::get().all().size(), 1U);
        EXPECT_EQ(Program::saved("extensions"), after);
    }
}

struct Closing : Window {
    int* closed = nullptr;
    void Event_Close() override { ++*closed; }
};

struct Endless : Thread {
    void Event_Run() override {
        for (;;) Yield();
    }
};

TEST_F(AppTest, TheProgramEndsWithItsLastWindowUnlessARunIsAliveOrByQuit) {
    int closed = 0;
    const auto open = [&] { Windows::get().instance<Closing>().closed = &closed; };
    open();
    const auto run = make<Endless>();
    run->Run();
    handleEvent([] { Windows::get().front()->userClosed(); });
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(program.platform.exitStatus, -1);
    handleEvent([&] { run->Kill(); });
    EXPECT_EQ(program.platform.exitStatus, 0);

    open();
    winLogin();
    run->Run();
    handleEvent([this] { program.app.userChoseMenu("FileQuit"); });
    EXPECT_FALSE(run->running());
    EXPECT_EQ(closed, 2);
    handleEvent([] { winLogin(); });
    EXPECT_TRUE(Windows::get().all().empty());
}

}  // namespace bracken::test
