#include "platform/qt/waker.h"

#include <QCoreApplication>
#include <QEvent>
#include <chrono>

#include "framework/threads/main_thread_calls.h"

namespace bracken {

namespace {

constexpr std::chrono::milliseconds shortWait{2};

}  // namespace

void Waker::wake() {
    // Locked so that no wake falls between a waiter's look at its flag and its sleep.
    { std::lock_guard<std::mutex> lock(mutex_); }
    woken_.notify_one();
    if (!posted_.exchange(true)) QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool Waker::waitBriefly(const std::atomic<bool>& done) {
    std::unique_lock<std::mutex> lock(mutex_);
    return woken_.wait_for(lock, shortWait, [&] { return done.load(std::memory_order_acquire); });
}

void Waker::customEvent(QEvent* /*event*/) {
    posted_.store(false);
    MainThreadCalls::instance().run();
}

}  // namespace bracken
