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

// A statement that the main thread waits for. A box that comes up in one, as for an error, is there
// to be answered.
enum class Statement { none, underWay, underBox };

// Calls that runs make on the main thread: boxes, the alert sound. The run waits without the
// baton; afterwards the baton goes straight back to it, ahead of the next event. All
// members are called holding the baton, but for inStatement.
//
// It is also the one place that knows whether what the user does is dropped, since the main thread
// waits for a statement or a run waits for the main thread.
class MainThreadCalls {
  public:
    static MainThreadCalls& instance();

    // Runs `work` on the main thread and returns when it is done; on the main thread at once. An
    // exception out of `work` is passed on. Leaves the run if it is killed meanwhile.
    void call(const std::function<void()>& work);

    // Carries out what waits; main thread only. Does nothing before the end of a statement.
    void run();
    // Closes the box of a killed run and releases the killed runs that wait; main thread only.
    void dropKilled();

    // Whether all input is dropped but Quit, which abandons the statement. Main thread, baton or
    // not.
    bool inStatement() const { return statement_ == Statement::underWay; }
    // Whether what would start something is dropped: during a statement, or from a run's call until
    // that has been carried out, unless the run has been killed.
    bool dropsActions() const;

    // Sets the state of the main thread's statement for a scope. Main thread.
    class StatementScope {
      public:
        explicit StatementScope(Statement statement);
        ~StatementScope();
        StatementScope(const StatementScope&) = delete;
        StatementScope& operator=(const StatementScope&) = delete;

      private:
        Statement before_;
    };

  private:
    friend int messageBox(const std::string& text, int code, const std::string& title);

    struct Call {
        const std::function<void()>* work;
        const std::atomic<bool>* killed;
        std::exception_ptr error;
        baton::Waiter waiter;
    };

    std::deque<Call*> waiting_;
    Call* current_ = nullptr;
    // Main thread only.
    Statement statement_ = Statement::none;
};

// Shows a message box on the main thread, see Platform::messageBox, while the caller waits without
// the baton. Holding the baton, any thread.
int messageBox(const std::string& text, int code, const std::string& title);

}  // namespace bracken
