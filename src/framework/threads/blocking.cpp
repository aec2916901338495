#include "framework/threads/blocking.h"

#include <atomic>
#include <exception>
#include <thread>

#include "framework/platform/platform.h"
#include "framework/threads/main_thread_calls.h"
#include "framework/threads/thread.h"
#include "framework/threads/without_baton.h"

namespace bracken {

namespace {

// Marks the main thread as being in a statement for a scope.
class Statement {
  public:
    Statement() { MainThreadCalls::instance().setInStatement(true); }
    ~Statement() { MainThreadCalls::instance().setInStatement(false); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
};

}  // namespace

void blocking(const std::function<void()>& call, const std::function<void()>& cancel) {
    Platform& platform = Platform::current();
    if (!isMainThread() || !platform.hasEventLoop()) {
        withoutBaton(call);
        return;
    }
    Statement statement;
    std::atomic<bool> done{false};
    std::exception_ptr error;
    bool quit = false;
    {
        BatonRelease released;
        std::thread helper([&] {
            try {
                call();
            } catch (...) {
                error = std::current_exception();
            }
            done.store(true, std::memory_order_release);
            platform.wake();
        });
        quit = !platform.pumpUntil(done);
        if (quit) cancel();
        helper.join();
    }
    if (quit) throw UnwindSignal();
    if (error) std::rethrow_exception(error);
}

}  // namespace bracken
