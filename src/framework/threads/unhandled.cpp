#include "framework/threads/unhandled.h"

#include <cstdio>
#include <string>

#include "framework/exception.h"
#include "framework/platform/platform.h"
#include "framework/threads/main_thread_calls.h"
#include "framework/threads/thread.h"

namespace bracken {

namespace {

void reportAndEnd(const std::string& what) {
    std::string report =
        "The application has to end: an error occurred that nothing handles.\n\n" + what;
    std::fprintf(stderr, "%s\n", report.c_str());
    messageBox(report, BoxCode::error, "");
    Platform::current().abort(1);
}

}  // namespace

void callReportingUnhandled(const std::function<void()>& work) {
    try {
        work();
    } catch (const std::exception& error) {
        // Its unwinding may have given up the baton.
        Thread::leaveIfKilled();
        reportAndEnd(error.what());
    }
}

}  // namespace bracken
