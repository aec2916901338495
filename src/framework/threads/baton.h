#pragma once

#include <atomic>
#include <utility>

// The baton: whoever runs program code or touches the model holds it.
// - It is a fair lock: those who wait stand in a queue, and giving it up hands it to the first of
//   them directly.
// - It is re-entrant, by a depth kept for each thread.
// - The main thread takes it around each event, a run holds it between its stopping points.
namespace bracken::baton {

// A thread that waits for the baton; lives on its stack.
class Waiter {
  public:
    // Returns once the baton has been handed to this waiter. Spins briefly, then sleeps.
    void wait();

  private:
    friend class Lock;
    std::atomic<int> granted_{0};
    Waiter* next_ = nullptr;
};

void take();
void give();
// Whether the calling thread holds it.
bool held();

// Gives up all levels; the result is for takeBack. With no level held both do nothing.
int giveAll();
void takeBack(int depth);

// Whether somebody waits: a relaxed load.
bool contended();
// Hands the baton to the first who waits and waits in turn to get it back; does nothing if nobody
// waits.
void handOver();
// Hands the baton to `waiter`, ahead of the queue, and waits in turn to get it back. The waiter's
// thread must have given up its levels, and regains them by adopt.
void passTo(Waiter& waiter);
// After `Waiter::wait` has returned: sets this thread's depth to the one that giveAll returned.
void adopt(int depth);

// Holds the baton for a scope.
class Hold {
  public:
    Hold() { take(); }
    ~Hold() { give(); }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
};

// Asserts, in builds with assertions, that the caller may touch the model.
void assertHeld();

}  // namespace bracken::baton
