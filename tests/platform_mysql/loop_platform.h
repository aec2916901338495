#pragma once

#include <condition_variable>
#include <mutex>
#include <string>

#include "framework/platform/null_platform.h"

namespace bracken::test {

// A desktop with an event loop and nothing else, so that statements run as they do in the program:
// on a helper thread, while this one pumps. Installs itself.
class LoopPlatform : public NullPlatform {
  public:
    bool hasEventLoop() override { return true; }
    bool pumpUntil(const std::atomic<bool>& done) override;
    void wake() override;
    // The user chooses Quit; seen by the pump that is under way, or else the next. Any thread.
    void quit();

    // Number of pumps so far.
    int pumps = 0;

  private:
    std::mutex mutex_;
    std::condition_variable woken_;
    bool quit_ = false;
};

}  // namespace bracken::test
