#include "framework/windows/event.h"

#include "framework/threads/baton.h"
#include "framework/threads/main_thread_calls.h"
#include "framework/threads/thread.h"
#include "framework/threads/unhandled.h"
#include "framework/windows/application.h"

namespace bracken {

namespace {

// Events being handled, one inside the other. Main thread.
int depth = 0;

class DepthScope {
  public:
    DepthScope() { depth++; }
    ~DepthScope() { depth--; }
    DepthScope(const DepthScope&) = delete;
    DepthScope& operator=(const DepthScope&) = delete;
};

// A handler that runs because the program quits may itself be left by Quit. That ends, since each
// window closes once.
void carryOut(const std::function<void()>& work) {
    try {
        callReportingUnhandled(work);
    } catch (const UnwindSignal&) {
        carryOut([] { Application::current()->Quit(); });
    }
}

}  // namespace

void handleEvent(const std::function<void()>& work) {
    baton::Hold hold;
    DepthScope scope;
    carryOut(work);
    // An outer handler that shows a box may still open a window.
    if (depth == 1) Application::current()->quitIfNothingIsLeft();
}

void handleAction(const std::function<void()>& work) {
    handleEvent([&] {
        if (!MainThreadCalls::instance().dropsActions()) work();
    });
}

}  // namespace bracken
