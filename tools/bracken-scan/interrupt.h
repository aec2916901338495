#pragma once

namespace bracken::cli {

// Ctrl+C ends the process at once, with Status::interrupted, but while a HeldInterrupt lives; then
// the second one does. Main thread.
void handleInterrupts();
// What to write to standard error then, null for nothing; a text that stays.
void writeOnInterrupt(const char* text);

// Whether there was one while it was held.
bool interrupted();
// Ends the process if so.
void leaveIfInterrupted();

// For a scope that has something to bring to its end first. System calls that wait return with
// EINTR.
class HeldInterrupt {
  public:
    HeldInterrupt();
    ~HeldInterrupt();
    HeldInterrupt(const HeldInterrupt&) = delete;
    HeldInterrupt& operator=(const HeldInterrupt&) = delete;
};

}  // namespace bracken::cli
