#include "tests/platform_mysql/loop_platform.h"

namespace bracken::test {

bool LoopPlatform::pumpUntil(const std::atomic<bool>& done) {
    pumps++;
    std::unique_lock lock(mutex_);
    woken_.wait(lock, [&] { return done || quit_; });
    return !quit_;
}

void LoopPlatform::wake() {
    std::lock_guard lock(mutex_);
    woken_.notify_all();
}

void LoopPlatform::quit() {
    std::lock_guard lock(mutex_);
    quit_ = true;
    woken_.notify_all();
}

}  // namespace bracken::test
