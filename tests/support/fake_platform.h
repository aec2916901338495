#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "framework/platform/platform.h"

namespace bracken::test {

// A desktop whose user answers by a list made in advance. A question that nobody expected fails the
// test, and so does an expected one that was never asked. Installs itself.
class FakePlatform : public Platform {
  public:
    FakePlatform();
    ~FakePlatform() override;

    // The next box must show this text; it is answered with `answer`.
    void expectBox(const std::string& text, int answer = BoxCode::okPressed) {
        boxes_.push_back({text, answer, false});
    }
    // The next box may show anything, which goes into `text`.
    void expectAnyBox(std::string& text) {
        boxes_.push_back({"", BoxCode::okPressed, false, &text});
    }
    // The next box stays open until it is closed by the program.
    void expectBoxLeftOpen(const std::string& text) {
        boxes_.push_back({text, BoxCode::okPressed, true});
    }
    // The next folder dialog gives this path, "" for cancelled.
    void expectFolder(const std::string& path) { folders_.push_back(path); }
    // The next dialog for a file to write gives this path, "" for cancelled.
    void expectSave(const std::string& path) { saves_.push_back(path); }
    // What the user does in the next modal window; it must close in the course of that.
    void expectModal(const std::function<void(const Window&)>& user) { modals_.push_back(user); }

    int messageBox(const std::string& text, int code, const std::string& title) override;
    std::string selectFolder() override;
    std::string saveFile(const SaveQuestion& question) override;
    void runModal(const Window& window) override;
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
    void bringToFront(Window& /*window*/) override {}
    void modelChanged() override { frames++; }
    void abort(int status) override { abortStatus = status; }
    void wake() override {}
    bool hasEventLoop() override { return false; }
    bool pumpUntil(const std::atomic<bool>& /*done*/) override { return true; }

    int beeps = 0;
    int frames = 0;
    // -1: not called.
    int exitStatus = -1;
    int abortStatus = -1;
    std::string clipboard;
    std::string offered;
    std::vector<std::string> performed;
    // Called while a box is on the screen.
    std::function<void()> whileBoxIsOpen;
    // What the boxes asked, in order.
    std::vector<int> boxCodes;
    std::vector<SaveQuestion> saveQuestions;
    // Files that were opened.
    std::vector<std::string> launched;

  private:
    struct Box {
        std::string text;
        int answer = BoxCode::okPressed;
        bool leftOpen = false;
        std::string* shown = nullptr;
    };
    std::deque<Box> boxes_;
    std::deque<std::string> folders_;
    std::deque<std::string> saves_;
    std::deque<std::function<void(const Window&)>> modals_;
    std::atomic<bool> boxClosed_{false};
};

// Lets runs go on and carries out their calls to this thread, which must be the main one holding
// the baton, until the condition holds.
void runUntil(const std::function<bool()>& condition);

}  // namespace bracken::test
