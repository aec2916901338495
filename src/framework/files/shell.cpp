#include "framework/files/shell.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

#include "framework/files/paths.h"

namespace bracken {

namespace {

// A descriptor, -1 if the folder can't be told.
int openProgramFolder() {
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    if (length <= 0) return -1;
    const std::string folder = parentPath(std::string(path, static_cast<size_t>(length)));
    return open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
}

}  // namespace

void Shell::Execute(const std::string& command) {
    // The shell itself extends the path: this process's environment is shared by its threads. The
    // folder goes there by a descriptor of the shell's, since its own path may hold a colon.
    constexpr int descriptor = 9;
    std::string run = R"(PATH="/proc/self/fd/9/)" BRACKEN_PRIVATE_FOLDER
                      R"(:/proc/self/fd/9${PATH:+:$PATH}"; export PATH; eval "$1")";
    std::string name = "sh";
    std::string option = "-c";
    std::string text = command;
    char* const arguments[] = {name.data(), option.data(), run.data(),
                               name.data(), text.data(),   nullptr};
    const int folder = openProgramFolder();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (folder >= 0) posix_spawn_file_actions_adddup2(&actions, folder, descriptor);
    pid_t child = 0;
    const bool spawned = posix_spawn(&child, "/bin/sh", &actions, nullptr, arguments, environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    if (folder >= 0) close(folder);
    while (spawned && waitpid(child, nullptr, 0) < 0 && errno == EINTR) continue;
}

}  // namespace bracken
