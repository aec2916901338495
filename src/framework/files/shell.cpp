#include "framework/files/shell.h"

#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <csignal>

#include "framework/files/file_calls.h"
#include "framework/files/paths.h"

namespace bracken {

namespace {

// None if the folder is unknown.
Descriptor openProgramFolder() {
    char path[PATH_MAX];
    ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    if (length <= 0) return Descriptor();
    return openFolder(parentPath(std::string(path, static_cast<size_t>(length))));
}

// True also where the system has no way to wait with a limit.
bool endsWithin(std::chrono::milliseconds limit, pid_t child) {
    using std::chrono::steady_clock;
    Descriptor process(static_cast<int>(syscall(SYS_pidfd_open, child, 0)));
    if (!process.isOpen()) return true;
    pollfd end = {.fd = process.get(), .events = POLLIN, .revents = 0};
    auto deadline = steady_clock::now() + limit;
    int ready = uninterrupted([&] {
        auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - steady_clock::now());
        return poll(&end, 1, static_cast<int>(std::max<int64_t>(left.count(), 0)));
    });
    return ready != 0;
}

}  // namespace

void Shell::Execute(const std::string& command) {
    // The shell itself extends the path: this process's environment is shared by its threads. The
    // folder goes there by a descriptor of the shell's, since its own path may contain a colon.
    constexpr int descriptor = 9;
    std::string run = R"(PATH="/proc/self/fd/9/)" BRACKEN_PRIVATE_FOLDER
                      R"(:/proc/self/fd/9${PATH:+:$PATH}"; export PATH; eval "$1")";
    std::string name = "sh";
    std::string option = "-c";
    std::string text = command;
    char* const arguments[] = {name.data(), option.data(), run.data(),
                               name.data(), text.data(),   nullptr};
    Descriptor folder = openProgramFolder();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (folder.isOpen()) posix_spawn_file_actions_adddup2(&actions, folder.get(), descriptor);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    pid_t child = 0;
    bool spawned = posix_spawn(&child, "/bin/sh", &actions, &attributes, arguments, environ) == 0;
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    if (!spawned) return;
    if (!endsWithin(limit_, child)) kill(-child, SIGKILL);
    uninterrupted([&] { return waitpid(child, nullptr, 0); });
}

}  // namespace bracken
