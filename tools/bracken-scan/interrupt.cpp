#include "tools/bracken-scan/interrupt.h"

#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstring>

#include "tools/bracken-scan/failure.h"

namespace bracken::cli {

namespace {

// Written by the handler.
volatile std::sig_atomic_t held = 0;
volatile std::sig_atomic_t seen = 0;
// Read by it; null for none.
std::atomic<const char*> lastWords = nullptr;

void onInterrupt(int /*signal*/) {
    if (held == 0 || seen != 0) {
        const char* text = lastWords;
        if (text != nullptr) (void)!write(STDERR_FILENO, text, std::strlen(text));
        _exit(Status::interrupted);
    }
    seen = 1;
}

}  // namespace

void handleInterrupts() {
    struct sigaction action = {};
    // A shell that starts a job in the background lets it ignore the signal.
    sigaction(SIGINT, nullptr, &action);
    if (action.sa_handler == SIG_IGN) return;
    action.sa_handler = onInterrupt;
    action.sa_flags = 0;
    sigaction(SIGINT, &action, nullptr);
}

void writeOnInterrupt(const char* text) {
    lastWords = text;
}

bool interrupted() {
    return seen != 0;
}

void leaveIfInterrupted() {
    if (interrupted()) _exit(Status::interrupted);
}

HeldInterrupt::HeldInterrupt() {
    held = 1;
}

HeldInterrupt::~HeldInterrupt() {
    held = 0;
}

}  // namespace bracken::cli
