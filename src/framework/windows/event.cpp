#include "framework/windows/event.h"

#include "framework/threads/baton.h"
#include "framework/threads/main_thread_calls.h"
#include "framework/threads/thread.h"
#include "framework/threads/unhandled.h"
#include "framework/windows/application.h"

namespace bracken {

namespace {

// Events under way, one inside the other. Main thread.
int underWay = 0;

class UnderWay {
  public:
    UnderWay() { underWay++; }
    ~UnderWay() { underWay--; }
    UnderWay(const UnderWay&) = delete;
    UnderWay& operator=(const UnderWay&) = delete;
};

// A handler that runs because the program quits may be left by Quit in its turn. It comes to an
// end: each window closes once.
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
    UnderWay mark;
    carryOut(work);
    // A handler that shows a box may yet open a window.
    if (underWay == 1) Application::current()->quitIfNothingIsLeft();
}

void handleAction(const std::function<void()>& work) {
    handleEvent([&] {
        if (!MainThreadCalls::instance().busy()) work();
    });
}

}  // namespace bracken
