#pragma once

#include <sys/types.h>

#include <vector>

#include "tests/support/temp_folder.h"

namespace bracken::test {

// Starts a program found on the PATH, which ends with this process. Its standard output goes to
// `output`, to nowhere if that is -1; the caller waits for its end. Must be called on the main
// thread.
pid_t spawn(const std::vector<std::string>& command, int output);

// Runs a program to its end and gives what it wrote to standard output. Throws std::runtime_error
// if it fails.
std::string outputOf(const std::vector<std::string>& command);

// A database server of this test process alone, empty, with a user root who has no password. It
// answers on a socket and on a port of 127.0.0.1, and ends with the process, whatever ends that.
class PrivateServer {
  public:
    // Makes the data folder and starts the server with these options added. Returns once it
    // answers, and throws std::runtime_error, with the server's log, if it does not. A client
    // library prepared from now on, also that of child processes, finds it under "localhost" and
    // "127.0.0.1".
    explicit PrivateServer(const std::vector<std::string>& options = {});
    ~PrivateServer();

    // Statements by the command-line client, as root; its output, a line a row, without headings.
    std::string run(const std::string& statements) const;

    std::string socket() const { return folder_.path("s"); }
    int port() const { return port_; }
    std::string folder() const { return folder_.path(); }

  private:
    TempFolder folder_;
    int port_;
    pid_t process_ = 0;
};

}  // namespace bracken::test
