#include "framework/threads/without_baton.h"

#include <atomic>
#include <exception>
#include <thread>

#include "framework/platform/platform.h"
#include "framework/threads/main_thread_calls.h"

namespace bracken {

namespace {

// Makes `call` on a thread of its own and pumps events meanwhile.
void callOnHelper(Platform& platform, const std::function<void()>& call,
                  const std::function<void()>& cancel) {
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

}  // namespace

void blocking(const std::function<void()>& call, const std::function<void()>& cancel) {
    Platform& platform = Platform::current();
    if (!isMainThread() || !platform.hasEventLoop()) {
        withoutBaton(call);
        return;
    }
    MainThreadCalls::StatementScope statement(Statement::underWay);
    callOnHelper(platform, call, cancel);
}

}  // namespace bracken
