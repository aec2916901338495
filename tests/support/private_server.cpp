#include "tests/support/private_server.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <stdexcept>

#include "tests/support/child.h"

namespace bracken::test {

namespace {

// A port that nobody listens on at this moment.
int freePort() {
    int listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    bool bound = bind(listener, generic, size) == 0 && getsockname(listener, generic, &size) == 0;
    close(listener);
    if (!bound) throw std::runtime_error("no free port");
    return ntohs(address.sin_port);
}

}  // namespace

PrivateServer::PrivateServer(const std::vector<std::string>& options) : port_(freePort()) {
    std::vector<std::string> command = {BRACKEN_PRIVATE_SERVER, folder(),
                                        "--port=" + std::to_string(port_),
                                        "--bind-address=127.0.0.1"};
    command.insert(command.end(), options.begin(), options.end());
    process_ = spawn(command, -1);
    awaitAnswer();
}

PrivateServer::~PrivateServer() {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
}

std::string PrivateServer::run(const std::string& statements) const {
    return outputOf({"mariadb", "--no-defaults", "--user=root", "--socket=" + socket(), "--batch",
                     "--skip-column-names", "--execute=" + statements});
}

void PrivateServer::publish() const {
    setenv("MYSQL_UNIX_PORT", socket().c_str(), 1);
    setenv("MYSQL_TCP_PORT", std::to_string(port_).c_str(), 1);
}

// One that only listens has not finished its start, and may hang when it is asked to end.
void PrivateServer::awaitAnswer() {
    const std::string ask = "mariadb --no-defaults --user=root --socket='" + socket() +
                            "' --execute='select 1' 2>/dev/null";
    int status = 0;
    while (waitpid(spawn({"sh", "-c", ask}, -1), &status, 0), status != 0) {
        if (waitpid(process_, nullptr, WNOHANG) != 0) {
            throw std::runtime_error("the server ended: " + folder_.read("log"));
        }
        poll(nullptr, 0, 5);
    }
}

}  // namespace bracken::test
