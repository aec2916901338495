#include "tools/bracken-scan/password.h"

#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "tools/bracken-scan/interrupt.h"
#include "tools/bracken-scan/lines.h"

namespace bracken::cli {

namespace {

std::string withoutLineEnd(std::string text) {
    if (text.ends_with('\n')) text.pop_back();
    if (text.ends_with('\r')) text.pop_back();
    return text;
}

// Keeps what is typed from showing.
class Unechoed {
  public:
    Unechoed() {
        tcgetattr(STDIN_FILENO, &before_);
        termios silent = before_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
    }
    ~Unechoed() { tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_); }
    Unechoed(const Unechoed&) = delete;
    Unechoed& operator=(const Unechoed&) = delete;

  private:
    termios before_{};
};

std::string typedLine() {
    const HeldInterrupt held;
    // First, as that drops what was typed before it.
    const Unechoed unechoed;
    std::fputs("Password: ", stderr);
    std::string line;
    char byte = 0;
    while (!interrupted()) {
        const ssize_t got = read(STDIN_FILENO, &byte, 1);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0 || byte == '\n') break;
        line += byte;
    }
    return line;
}

std::string prompted() {
    std::string line = typedLine();
    std::fputs("\n", stderr);
    leaveIfInterrupted();
    return line;
}

}  // namespace

std::string password(const Options& options) {
    if (options.passwordFile) return withoutLineEnd(readFile(*options.passwordFile));
    if (const char* variable = std::getenv("BRACKEN_PASSWORD")) return variable;
    return isatty(STDIN_FILENO) != 0 ? prompted() : "";
}

}  // namespace bracken::cli
