#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "tests/support/temp_folder.h"

namespace bracken::test {

// A database server of this test process alone, empty, with a user root who has no password. It
// answers on a socket and on a port of 127.0.0.1, and ends with the process, whatever ends that.
class PrivateServer {
  public:
    // Makes the data folder and starts the server with these options added. Returns once it
    // answers, and throws std::runtime_error, with the server's log, if it does not.
    explicit PrivateServer(const std::vector<std::string>& options = {});
    ~PrivateServer();
    PrivateServer(const PrivateServer&) = delete;
    PrivateServer& operator=(const PrivateServer&) = delete;

    // Statements by the command-line client, as root; its output, a line a row, without headings.
    std::string run(const std::string& statements) const;

    std::string socket() const { return folder_.path("s"); }
    int port() const { return port_; }
    std::string folder() const { return folder_.path(); }
    // Lets the client library, also that of child processes, find this server under "localhost" and
    // "127.0.0.1". To be called before the library is prepared.
    void publish() const;

  private:
    void awaitAnswer();

    TempFolder folder_;
    int port_;
    pid_t process_ = 0;
};

}  // namespace bracken::test
