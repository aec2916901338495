#include "framework/controls/event.h"

#include "framework/controls/application.h"
#include "framework/threads/baton.h"
#include "framework/threads/main_calls.h"
#include "framework/threads/thread.h"
#include "framework/unhandled.h"

namespace bracken {

void handleEvent(const std::function<void()>& work) {
    baton::Hold hold;
    try {
        callReportingUnhandled(work);
        MainCalls::instance().run();
    } catch (const UnwindSignal&) {
        Application::current()->Quit();
    }
    Application::current()->quitIfNothingIsLeft();
}

}  // namespace bracken
