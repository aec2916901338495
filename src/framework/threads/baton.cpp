#include "framework/threads/baton.h"

#include <cassert>
#include <mutex>

namespace bracken::baton {

namespace {

thread_local int depthOfThread = 0;

// Longer than a run that is awake takes to its next stopping point; much more would only take the
// processor from those that read ahead.
constexpr int maxSpins = 400;

void pause() {
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#endif
}

}  // namespace

void Waiter::wait() {
    for (int i = 0; i < maxSpins; i++) {
        if (granted_.load(std::memory_order_acquire) != 0) return;
        pause();
    }
    granted_.wait(0, std::memory_order_acquire);
}

// The queue, and whether the baton is free. The mutex is held for a few instructions only: whoever
// waits for the baton waits on a Waiter.
class Lock {
  public:
    void take() {
        Waiter self;
        if (!enqueueUnlessFree(self)) return;
        self.wait();
    }

    void give() {
        std::unique_lock guard(mutex_);
        if (first_ == nullptr) {
            free_ = true;
            return;
        }
        Waiter* next = popFirst();
        grant(*next);
    }

    void handOver() {
        Waiter self;
        {
            std::lock_guard guard(mutex_);
            if (first_ == nullptr) return;
            Waiter* next = popFirst();
            append(self);
            grant(*next);
        }
        self.wait();
    }

    void passTo(Waiter& waiter) {
        Waiter self;
        {
            std::lock_guard guard(mutex_);
            append(self);
            grant(waiter);
        }
        self.wait();
    }

    bool contended() const { return waiting_.load(std::memory_order_relaxed) != 0; }

  private:
    bool enqueueUnlessFree(Waiter& self) {
        std::lock_guard guard(mutex_);
        if (free_) {
            free_ = false;
            return false;
        }
        append(self);
        return true;
    }

    void append(Waiter& waiter) {
        (first_ == nullptr ? first_ : last_->next_) = &waiter;
        last_ = &waiter;
        waiting_.fetch_add(1, std::memory_order_relaxed);
    }

    Waiter* popFirst() {
        Waiter* waiter = first_;
        first_ = waiter->next_;
        waiting_.fetch_sub(1, std::memory_order_relaxed);
        return waiter;
    }

    // The waiter's memory may be gone as soon as it has seen the store, so notifying uses the
    // address alone.
    static void grant(Waiter& waiter) {
        waiter.granted_.store(1, std::memory_order_release);
        waiter.granted_.notify_one();
    }

    std::mutex mutex_;
    bool free_ = true;
    Waiter* first_ = nullptr;
    Waiter* last_ = nullptr;
    std::atomic<int> waiting_{0};
};

namespace {

Lock& lock() {
    static Lock theLock;
    return theLock;
}

}  // namespace

void take() {
    if (depthOfThread == 0) lock().take();
    depthOfThread++;
}

void give() {
    assert(depthOfThread > 0);
    if (--depthOfThread == 0) lock().give();
}

bool held() {
    return depthOfThread > 0;
}

int giveAll() {
    int depth = std::exchange(depthOfThread, 0);
    if (depth > 0) lock().give();
    return depth;
}

void takeBack(int depth) {
    if (depth > 0) lock().take();
    depthOfThread = depth;
}

bool contended() {
    return lock().contended();
}

void handOver() {
    int depth = std::exchange(depthOfThread, 0);
    lock().handOver();
    depthOfThread = depth;
}

void passTo(Waiter& waiter) {
    int depth = std::exchange(depthOfThread, 0);
    lock().passTo(waiter);
    depthOfThread = depth;
}

void adopt(int depth) {
    depthOfThread = depth;
}

void assertHeld() {
    assert(held());
}

}  // namespace bracken::baton
