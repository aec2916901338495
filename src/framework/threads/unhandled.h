#pragma once

#include <functional>

namespace bracken {

// The default for exceptions that nobody catches, the same for an event on the main thread and for
// a run: `work` is called, and an exception out of it is reported, type and text, on standard error
// and in a message box; then the process ends with a non-zero status, saving nothing. UnwindSignal
// passes through. The caller holds the baton.
void callReportingUnhandled(const std::function<void()>& work);

}  // namespace bracken
