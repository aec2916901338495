#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "framework/platform/null_platform.h"
#include "framework/threads/main_thread_calls.h"
#include "framework/threads/without_baton.h"
#include "framework/windows/windows.h"

namespace bracken::test {

// A desktop whose user answers by a list made in advance. A question that nobody expected fails the
// test, and so does an expected one that was never asked. Installs itself.
class FakePlatform : public NullPlatform {
  public:
    FakePlatform() { Windows::get().reset(); }
    ~FakePlatform() override {
        Thread::killAll();
        {
            BatonRelease released;
            Thread::joinAll();
        }
        Windows::get().reset();
        EXPECT_EQ(boxes_.size() + folders.size() + saves.size() + modals.size(), 0U)
            << "an expected question was never asked";
    }

    // The next box must show this text; it is answered with `answer`.
    void expectBox(const std::string& text, int answer = BoxCode::okPressed) {
        boxes_.push_back([=](const std::string& shown) {
            EXPECT_EQ(shown, text);
            return answer;
        });
    }
    // The next box may show anything, which goes into `text`.
    void expectAnyBox(std::string& text) {
        boxes_.push_back([&](const std::string& shown) {
            text = shown;
            return BoxCode::okPressed;
        });
    }
    int messageBox(const std::string& text, int code, const std::string& /*title*/) override {
        boxCodes.push_back(code);
        const auto user = next(boxes_, "box " + text);
        boxClosed_ = false;
        if (whileBoxIsOpen) whileBoxIsOpen();
        while (boxesStayOpen && !boxClosed_) std::this_thread::yield();
        return user ? user(text) : BoxCode::okPressed;
    }
    std::string selectFolder() override { return next(folders, "folder dialog"); }
    std::string saveFile(const SaveQuestion& question) override {
        saveQuestions.push_back(question);
        return next(saves, "dialog for a file to write");
    }
    void runModal(const Window& window) override {
        const auto user = next(modals, "modal window");
        if (!user) return;
        const baton::Hold hold;
        user(window);
        EXPECT_TRUE(window.closed()) << "the modal window stays open";
    }
    void launch(const std::string& path) override { launched.push_back(path); }
    void closeMessageBox() override { boxClosed_ = true; }
    void beep() override { beeps++; }
    ScreenRect screen() override { return {0, 0, 1920, 1080}; }
    ScreenRect workArea() override { return screen(); }
    bool offersEdit(const std::string& menuItemName) override { return menuItemName == offered; }
    void performEdit(const std::string& menuItemName) override {
        performed.push_back(menuItemName);
    }
    std::string clipboardText() override { return clipboard; }
    void setClipboardText(const std::string& text) override { clipboard = text; }
    void exitLoop(int status) override { exitStatus = status; }
    void modelChanged() override { frames++; }
    void abort(int status) override { abortStatus = status; }

    // Paths that the next dialogs for a folder and for a file to write give, "" for cancelled.
    std::deque<std::string> folders, saves;
    // What the user does in the next modal windows; each must close in the course of that.
    std::deque<std::function<void(const Window&)>> modals;

    int beeps = 0, frames = 0;
    // -1: not called.
    int exitStatus = -1, abortStatus = -1;
    std::string clipboard, offered;
    // Menu items and files.
    std::vector<std::string> performed, launched;
    // Called while a box is on the screen.
    std::function<void()> whileBoxIsOpen;
    // Boxes wait until the program closes them.
    bool boxesStayOpen = false;
    // What the boxes and the dialogs for a file to write asked, in order.
    std::vector<int> boxCodes;
    std::vector<SaveQuestion> saveQuestions;

  private:
    // Takes the first of the answers; one that holds nothing, and a failed test, if there is none.
    template <class Answer>
    static Answer next(std::deque<Answer>& answers, const std::string& question) {
        if (answers.empty()) {
            ADD_FAILURE() << "unexpected: " << question;
            return {};
        }
        Answer first = std::move(answers.front());
        answers.pop_front();
        return first;
    }

    std::deque<std::function<int(const std::string&)>> boxes_;
    std::atomic<bool> boxClosed_{false};
};

// Lets runs go on and carries out their calls to this thread, which must be the main one holding
// the baton, until the condition holds.
inline void runUntil(const std::function<bool()>& condition) {
    while (!condition()) {
        MainThreadCalls::instance().run();
        BatonRelease released;
        std::this_thread::yield();
    }
}

}  // namespace bracken::test
