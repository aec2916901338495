#include "framework/files/shell.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

#include "framework/files/paths.h"

namespace bracken {

namespace {

std::string programFolder() {
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    return length > 0 ? parentPath(std::string(path, static_cast<size_t>(length))) : "";
}

}  // namespace

void Shell::Execute(const std::string& command) {
    // The shell itself extends the path: this process's environment is shared by its threads. An
    // empty piece of a path would mean the current folder.
    std::string run = "[ -z \"$1\" ] || PATH=\"$1${PATH:+:$PATH}\"; export PATH; eval \"$2\"";
    std::string name = "sh";
    std::string option = "-c";
    std::string folder = programFolder();
    std::string text = command;
    char* const arguments[] = {name.data(),   option.data(), run.data(), name.data(),
                               folder.data(), text.data(),   nullptr};
    pid_t child = 0;
    if (posix_spawn(&child, "/bin/sh", nullptr, nullptr, arguments, environ) != 0) return;
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) continue;
}

}  // namespace bracken
