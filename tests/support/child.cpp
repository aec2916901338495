#include "tests/support/child.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace bracken::test {

namespace {

void awaitSuccess(pid_t child, const std::string& words) {
    int status = 0;
    waitpid(child, &status, 0);
    if (status != 0) throw std::runtime_error(words + " failed");
}

}  // namespace

pid_t spawn(const std::vector<std::string>& command, int output) {
    std::vector<char*> arguments;
    for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const pid_t child = fork();
    if (child != 0) return child;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    dup2(output >= 0 ? output : open("/dev/null", O_WRONLY), STDOUT_FILENO);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

void runToNowhere(const std::vector<std::string>& command) {
    awaitSuccess(spawn(command, -1), command[0]);
}

std::string outputOf(const std::vector<std::string>& command) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    const pid_t child = spawn(command, ends[1]);
    close(ends[1]);
    std::string output;
    char bytes[4096];
    for (ssize_t count; (count = read(ends[0], bytes, sizeof bytes)) > 0;)
        output.append(bytes, static_cast<size_t>(count));
    close(ends[0]);
    awaitSuccess(child, command[0] + " with " + output);
    return output;
}

}  // namespace bracken::test
