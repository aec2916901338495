#pragma once

#include <atomic>

#include "framework/platform/null_platform.h"

namespace bracken::test {

// A desktop with an event loop and nothing else, so that statements run as they do in the program:
// on a helper thread, while this one pumps. Installs itself.
class LoopPlatform : public NullPlatform {
  public:
    bool hasEventLoop() override { return true; }
    bool pumpUntil(const std::atomic<bool>& done) override {
        pumps++;
        for (int seen = woken; !done && !quit_; seen = woken) woken.wait(seen);
        return !quit_;
    }
    // The user chooses Quit; seen by the pump that is under way, or else the next. Any thread.
    void quit() {
        quit_ = true;
        wake();
    }

    // Number of pumps so far.
    int pumps = 0;

  private:
    std::atomic<bool> quit_{false};
};

}  // namespace bracken::test
