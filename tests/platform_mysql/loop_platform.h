#pragma once

#include <condition_variable>
#include <mutex>
#include <string>

#include "framework/dialogs/platform.h"

namespace bracken::test {

// A desktop with an event loop and nothing else, so that statements run as they do in the program:
// on a helper thread, while this one pumps. Installs itself.
class LoopPlatform : public Platform {
  public:
    LoopPlatform() { install(this); }
    ~LoopPlatform() override { install(nullptr); }

    bool hasEventLoop() override { return true; }
    bool pumpUntil(const std::atomic<bool>& done) override;
    void wake() override;
    // The user chooses Quit; seen by the pump that is under way, or else the next. Any thread.
    void quit();

    // Number of pumps so far.
    int pumps = 0;

    int messageBox(const std::string&, int, const std::string&) override { return 0; }
    std::string selectFolder() override { return ""; }
    void closeMessageBox() override {}
    void beep() override {}
    ScreenRect screen() override { return {}; }
    bool offersEdit(const std::string&) override { return false; }
    void performEdit(const std::string&) override {}
    void exitLoop(int) override {}
    void bringToFront(Window&) override {}
    void modelChanged() override {}
    void abort(int) override {}

  private:
    std::mutex mutex_;
    std::condition_variable woken_;
    bool quit_ = false;
};

}  // namespace bracken::test
