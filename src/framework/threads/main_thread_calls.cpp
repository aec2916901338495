#include "framework/threads/main_thread_calls.h"

#include <algorithm>
#include <thread>

#include "framework/platform/platform.h"
#include "framework/threads/thread.h"
#include "framework/threads/without_baton.h"

namespace bracken {

namespace {

const std::thread::id mainThread = std::this_thread::get_id();

}  // namespace

bool isMainThread() {
    return std::this_thread::get_id() == mainThread;
}

MainThreadCalls& MainThreadCalls::instance() {
    static MainThreadCalls calls;
    return calls;
}

void MainThreadCalls::call(const std::function<void()>& work) {
    if (isMainThread()) {
        work();
        return;
    }
    Call call{&work, Thread::killedFlag(), nullptr, {}};
    waiting_.push_back(&call);
    Platform::current().wake();
    int depth = baton::giveAll();
    call.waiter.wait();
    baton::adopt(depth);
    Thread::leaveIfKilled();
    if (call.error) std::rethrow_exception(call.error);
}

void MainThreadCalls::run() {
    while (!waiting_.empty() && current_ == nullptr && statement_ == Statement::none) {
        current_ = waiting_.front();
        waiting_.pop_front();
        try {
            if (!*current_->killed) (*current_->work)();
        } catch (...) {
            current_->error = std::current_exception();
        }
        baton::passTo(std::exchange(current_, nullptr)->waiter);
    }
}

void MainThreadCalls::dropKilled() {
    if (current_ != nullptr && *current_->killed) Platform::current().closeMessageBox();
    auto firstKilled = std::stable_partition(waiting_.begin(), waiting_.end(),
                                             [](Call* call) { return !*call->killed; });
    std::deque<Call*> killed(firstKilled, waiting_.end());
    waiting_.erase(firstKilled, waiting_.end());
    for (Call* call : killed) baton::passTo(call->waiter);
}

bool MainThreadCalls::dropsActions() const {
    return statement_ != Statement::none || current_ != nullptr ||
           std::any_of(waiting_.begin(), waiting_.end(), [](Call* call) { return !*call->killed; });
}

MainThreadCalls::StatementScope::StatementScope(Statement statement)
    : before_(std::exchange(instance().statement_, statement)) {}

MainThreadCalls::StatementScope::~StatementScope() {
    MainThreadCalls& calls = instance();
    bool ends = calls.statement_ != Statement::none && before_ == Statement::none;
    calls.statement_ = before_;
    if (ends && !calls.waiting_.empty()) Platform::current().wake();
}

int messageBox(const std::string& text, int code, const std::string& title) {
    int answer = 0;
    MainThreadCalls& calls = MainThreadCalls::instance();
    calls.call([&] {
        MainThreadCalls::StatementScope scope(calls.inStatement() ? Statement::underBox
                                                                  : calls.statement_);
        answer = withoutBaton([&] { return Platform::current().messageBox(text, code, title); });
    });
    return answer;
}

}  // namespace bracken
