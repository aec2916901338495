#include "tests/support/private_server.h"

#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace bracken::test {

namespace {

// A port that nobody listens on at this moment.
int freePort() {
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    listen(listener, 1);
    sockaddr_in address{};
    socklen_t size = sizeof address;
    getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
    close(listener);
    return ntohs(address.sin_port);
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

std::string outputOf(const std::vector<std::string>& command) {
    const TempFolder folder;
    const int file = open(folder.path("output").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    int status = 0;
    waitpid(spawn(command, file), &status, 0);
    close(file);
    if (status != 0) throw std::runtime_error(command[0] + " failed");
    return folder.read("output");
}

PrivateServer::PrivateServer(const std::vector<std::string>& options) : port_(freePort()) {
    std::vector<std::string> command = {BRACKEN_PRIVATE_SERVER, folder(),
                                        "--port=" + std::to_string(port_)};
    command.insert(command.end(), options.begin(), options.end());
    process_ = spawn(command, -1);
    setenv("MYSQL_UNIX_PORT", socket().c_str(), 1);
    setenv("MYSQL_TCP_PORT", std::to_string(port_).c_str(), 1);
    // One that only listens has not finished its start, and may hang when it is asked to end.
    const std::string ask = "mariadb --no-defaults --user=root --execute='select 1' 2>/dev/null";
    int status = 0;
    while (waitpid(spawn({"sh", "-c", ask}, -1), &status, 0), status != 0) {
        if (waitpid(process_, nullptr, WNOHANG) != 0)
            throw std::runtime_error("the server ended: " + folder_.read("log"));
        poll(nullptr, 0, 5);
    }
}

PrivateServer::~PrivateServer() {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
}

std::string PrivateServer::run(const std::string& statements) const {
    return outputOf({"mariadb", "--no-defaults", "--user=root", "--socket=" + socket(), "--batch",
                     "--skip-column-names", "--execute=" + statements});
}

}  // namespace bracken::test
