#include "framework/threads/thread.h"

#include <algorithm>
#include <thread>
#include <utility>
#include <vector>

#include "framework/exception.h"
#include "framework/threads/baton.h"
#include "framework/threads/main_thread_calls.h"
#include "framework/threads/unhandled.h"

namespace bracken {

// One run, apart from the Thread object, which may start the next run while this one still unwinds.
// Guarded by the baton.
struct Thread::RunState {
    std::atomic<bool> killed{false};
    bool ended = false;
    std::thread thread;
};

namespace {

thread_local Thread::RunState* runOfThread = nullptr;

// Runs whose threads have not been joined yet. Guarded by the baton.
std::vector<std::shared_ptr<Thread::RunState>>& runs() {
    static std::vector<std::shared_ptr<Thread::RunState>> all;
    return all;
}

void joinEnded() {
    auto firstEnded =
        std::stable_partition(runs().begin(), runs().end(), [](auto& run) { return !run->ended; });
    for (auto run = firstEnded; run != runs().end(); ++run) (*run)->thread.join();
    runs().erase(firstEnded, runs().end());
}

}  // namespace

Thread::~Thread() = default;

bool Thread::running() const {
    return run_ != nullptr && !run_->killed;
}

bool Thread::anyRunning() {
    return std::any_of(runs().begin(), runs().end(),
                       [](auto& run) { return !run->ended && !run->killed; });
}

void Thread::Run() {
    baton::assertHeld();
    if (running()) throw ThreadAlreadyRunningException();
    joinEnded();
    run_ = std::make_shared<RunState>();
    runs().push_back(run_);
    run_->thread = std::thread([self = shared_from_this(), run = run_]() mutable {
        baton::take();
        execute(self, run);
        self.reset();
        run->ended = true;
        baton::give();
    });
}

void Thread::execute(const std::shared_ptr<Thread>& self, const std::shared_ptr<RunState>& run) {
    runOfThread = run.get();
    try {
        leaveIfKilled();
        callReportingUnhandled([&] { self->Event_Run(); });
    } catch (const UnwindSignal&) {
    }
    if (self->run_ == run) self->run_ = nullptr;
    runOfThread = nullptr;
}

void Thread::Kill() {
    baton::assertHeld();
    if (!running()) return;
    run_->killed = true;
    MainThreadCalls::instance().dropKilled();
}

void Thread::Yield() {
    if (!baton::contended()) return;
    baton::handOver();
    leaveIfKilled();
}

void Thread::leaveIfKilled() {
    if (runOfThread != nullptr && runOfThread->killed) throw UnwindSignal();
}

const std::atomic<bool>* Thread::killedFlag() {
    static const std::atomic<bool> never{false};
    return runOfThread != nullptr ? &runOfThread->killed : &never;
}

void Thread::killAll() {
    for (auto& run : runs()) run->killed = true;
    MainThreadCalls::instance().dropKilled();
}

void Thread::joinAll() {
    std::vector<std::shared_ptr<RunState>> unjoined;
    {
        baton::Hold hold;
        unjoined.swap(runs());
    }
    for (auto& run : unjoined) run->thread.join();
}

}  // namespace bracken
