#include "tools/bracken-scan/output.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "tools/bracken-scan/failure.h"
#include "tools/bracken-scan/interrupt.h"

namespace bracken::cli {

namespace {

constexpr size_t blockSize = size_t{64} * 1024;

size_t writeSome(std::string_view text) {
    const ssize_t put = ::write(STDOUT_FILENO, text.data(), text.size());
    if (put >= 0) return static_cast<size_t>(put);
    if (errno == EINTR) return 0;
    if (errno == EPIPE) _exit(Status::closedPipe);
    throw Failure("standard output: " + std::generic_category().message(errno));
}

}  // namespace

void Output::line(std::string_view text) {
    held_ += text;
    held_ += '\n';
    if (held_.size() >= blockSize) flush();
}

void Output::flush() {
    const HeldInterrupt held;
    write(held_);
    held_.clear();
}

void Output::write(std::string_view text) {
    bool atLineStart = true;
    while (!text.empty()) {
        if (interrupted()) {
            if (atLineStart) break;
            text = text.substr(0, text.find('\n') + 1);
        }
        const size_t put = writeSome(text);
        if (put > 0) atLineStart = text[put - 1] == '\n';
        text.remove_prefix(put);
    }
    leaveIfInterrupted();
}

}  // namespace bracken::cli
