#pragma once

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "framework/platform/platform.h"

namespace bracken {

// A desktop for programs that show nothing: a message goes to standard error.
class NullPlatform : public Platform {
  public:
    NullPlatform() { install(this); }
    ~NullPlatform() override { install(nullptr); }

    int messageBox(const std::string& text, int /*code*/, const std::string& /*title*/) override {
        std::fprintf(stderr, "%s\n", text.c_str());
        return BoxCode::okPressed;
    }
    std::string selectFolder() override { return ""; }
    std::string saveFile(const SaveQuestion& /*question*/) override { return ""; }
    void runModal(const Window& /*window*/) override {}
    void closeMessageBox() override {}
    void beep() override {}
    void launch(const std::string& /*path*/) override {}
    ScreenRect screen() override { return {}; }
    ScreenRect workArea() override { return {}; }
    bool offersEdit(const std::string& /*menuItemName*/) override { return false; }
    void performEdit(const std::string& /*menuItemName*/) override {}
    void exitLoop(int /*status*/) override {}
    void bringToFront(Window& /*window*/) override {}
    void modelChanged() override {}
    void abort(int status) override { std::_Exit(status); }
    void wake() override {
        woken.fetch_add(1);
        woken.notify_one();
    }
    bool hasEventLoop() override { return false; }
    bool pumpUntil(const std::atomic<bool>& /*done*/) override { return true; }

    // Counts the calls of wake.
    std::atomic<int> woken{0};
};

}  // namespace bracken
