#include "program/app.h"

#include <gtest/gtest.h>

#include "framework/exception.h"
#include "framework/windows/event.h"
#include "framework/windows/windows.h"
#include "program/actions/win_preferences.h"
#include "program/login/win_login.h"
#include "tests/support/program.h"

namespace bracken {
namespace {

using test::Program;

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

    Program program;
};

std::string outline(const MenuItem& menu) {
    std::string lines;
    for (auto& item : menu.items()) {
        const char* kind = dynamic_cast<PrefsMenuItem*>(item.get())  ? " prefs"
                           : dynamic_cast<QuitMenuItem*>(item.get()) ? " quit"
                                                                     : "";
        lines +=
            item->Name + " " + item->Text + " " + item->Shortcut + kind + "\n" + outline(*item);
    }
    return lines;
}

TEST_F(AppTest, TheMenuBarIsThis) {
    EXPECT_EQ(outline(*program.app.MenuBar),
              "FileMenu &File \nFileClose Close Cmd+W\nFileQuit &Quit Cmd+Q quit\n"
              "EditMenu &Edit \nEditUndo &Undo Cmd+Z\nUntitledMenu1 - \nEditCut Cu&t Cmd+X\n"
              "EditCopy &Copy Cmd+C\nEditPaste &Paste Cmd+V\nEditClear &Delete \n"
              "UntitledMenu0 - \nEditSelectAll Select &All Cmd+A\n"
              "Preferences Preferences Cmd+, prefs\n");
}

TEST_F(AppTest, MenusAreEnabledForTheWindowInFront) {
    EXPECT_EQ(enabled(), "FileQuit Preferences ");
    winLogin();
    EXPECT_EQ(enabled(), "FileClose FileQuit Preferences ");
    program.platform.offered = "EditCopy";
    EXPECT_EQ(enabled(), "FileClose FileQuit EditCopy Preferences ");
    program.app.userChoseMenu("EditCopy");
    program.app.userChoseMenu("EditPaste");
    EXPECT_EQ(program.platform.performed, std::vector<std::string>{"EditCopy"});
    program.app.userChoseMenu("FileClose");
    EXPECT_TRUE(Windows::get().all().empty());
}

TEST_F(AppTest, CheckErrorShowsTheServersWords) {
    EXPECT_FALSE(App().CheckError());
    program.db->Error = true;
    program.db->ErrorMessage = "Table 'x' doesn't exist";
    program.platform.expectBox("Table 'x' doesn't exist");
    EXPECT_TRUE(App().CheckError());
    EXPECT_TRUE(program.db->Error);
}

TEST_F(AppTest, ThePreferencesWindowKeepsTheExtensionList) {
    auto open = [this]() -> auto& {
        program.app.userChoseMenu("Preferences");
        return dynamic_cast<class winPreferences&>(*Windows::get().front());
    };
    auto& first = open();
    EXPECT_EQ(first.EditField1.Text.get(), "");
    first.EditField1.userEdited(" .PHP;cgi, ");
    winLogin();
    EXPECT_EQ(&open(), &first) << "the one that is open, in front again";
    first.butCancel.userPressed();
    EXPECT_EQ(open().EditField1.Text.get(), "");
    open().EditField1.userEdited(" .PHP;cgi, ");
    open().userPressedReturn();
    EXPECT_EQ(Windows::get().all().size(), 1U);
    EXPECT_EQ(Program::saved("extensions"), " .PHP;cgi, ");
    EXPECT_EQ(open().EditField1.Text.get(), " .PHP;cgi, ");
    open().EditField1.userEdited("");
    open().butSave.userPressed();
    EXPECT_EQ(Program::saved("extensions"), "");
}

class Closing : public Window {
  public:
    static inline int closed = 0;

  protected:
    void Event_Close() override { closed++; }
};

class Endless : public Thread {
  protected:
    void Event_Run() override {
        for (;;) Yield();
    }
};

TEST_F(AppTest, QuitEndsTheRunsAndClosesEachWindowOnce) {
    Closing::closed = 0;
    Windows::get().instance<Closing>();
    winLogin();
    auto run = make<Endless>();
    run->Run();
    handleEvent([this] { program.app.userChoseMenu("FileQuit"); });
    EXPECT_FALSE(run->running());
    EXPECT_EQ(Closing::closed, 1);
    EXPECT_EQ(program.platform.exitStatus, 0);
    handleEvent([] { winLogin(); });
    EXPECT_TRUE(Windows::get().all().empty());
}

TEST_F(AppTest, TheProgramEndsWithItsLastWindowUnlessARunIsAlive) {
    auto& window = Windows::get().instance<Closing>();
    auto run = make<Endless>();
    run->Run();
    handleEvent([&] { window.userClosed(); });
    EXPECT_EQ(program.platform.exitStatus, -1);
    handleEvent([&] { run->Kill(); });
    EXPECT_EQ(program.platform.exitStatus, 0);
}

TEST_F(AppTest, WhatAHandlerThrowsIsReportedAndEndsTheProgram) {
    program.platform.expectBox(
        "The application has to end: an error occurred that nothing handles.\n\n"
        "KeyNotFoundException: host");
    handleEvent([] { throw KeyNotFoundException("host"); });
    EXPECT_EQ(program.platform.abortStatus, 1);
}

}  // namespace
}  // namespace bracken
