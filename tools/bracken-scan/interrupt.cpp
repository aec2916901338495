#include "tools/bracken-scan/interrupt.h"

#include <unistd.h>

#include <csignal>

#include "tools/bracken-scan/failure.h"

namespace bracken::cli {

namespace {

// Written by the handler.
volatile std::sig_atomic_t held = 0;
volatile std::sig_atomic_t seen = 0;

void onInterrupt(int /*signal*/) {
    if (held == 0 || seen != 0) _exit(Status::interrupted);
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
