#pragma once

#include <atomic>
#include <deque>
#include <exception>
#include <functional>
#include <string>

#include "framework/threads/baton.h"

namespace bracken {

// Whether the caller is the thread that started the process.
bool isMainThread();

// Calls that a run has carried out on the main thread: boxes, the alert sound. The run waits
// without the baton; afterwards the baton goes straight back to it, ahead of the next event. All
// members are called holding the baton.
class MainThreadCalls {
  public:
    static MainThreadCalls& instance();

    // Runs `work` on the main thread and returns when it is done; on the main thread at once. An
    // exception out of `work` is passed on. Leaves the run if it is killed meanwhile.
    void call(const std::function<void()>& work);

    // Carries out what waits; main thread only. Does nothing while a statement is under way.
    void run();
    // Closes the box of a killed run and releases the killed runs that wait; main thread only.
    void dropKilled();

    // Whether a statement is under way, or a call of a run that is alive, or one waits.
    bool busy() const;

    // Marks a statement under way on the main thread, during which run() does nothing.
    void setInStatement(bool inStatement);

  private:
    struct Call {
        const std::function<void()>* work;
        const std::atomic<bool>* killed;
        std::exception_ptr error;
        baton::Waiter waiter;
    };

    std::deque<Call*> waiting_;
    Call* current_ = nullptr;
    bool inStatement_ = false;
};

// Shows a message box on the main thread, see Platform::messageBox, while the caller waits without
// the baton. Holding the baton, any thread.
int messageBox(const std::string& text, int code, const std::string& title);

}  // namespace bracken
