#include "framework/controls/event.h"

#include "framework/controls/application.h"
#include "framework/threads/baton.h"
#include "framework/threads/main_calls.h"
#include "framework/threads/thread.h"
#include "framework/unhandled.h"

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

}  // namespace

void handleEvent(const std::function<void()>& work) {
    baton::Hold hold;
    UnderWay mark;
    try {
        callReportingUnhandled(work);
        MainCalls::instance().run();
    } catch (const UnwindSignal&) {
        Application::current()->Quit();
    }
    // A handler that shows a box may yet open a window.
    if (underWay == 1) Application::current()->quitIfNothingIsLeft();
}

}  // namespace bracken
