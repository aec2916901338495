#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>

#include "platform/mysql/connection.h"
#include "platform/mysql/server_address.h"

namespace bracken {

// One attempt to connect, on a thread of its own. The client library can't be interrupted while it
// looks up a name, and has no timeout for a server that accepts and stays silent; so the caller may
// stop waiting. The attempt, which its thread keeps alive, then ends when the server answers or
// closes the connection, and closes its own end.
class ConnectAttempt : public std::enable_shared_from_this<ConnectAttempt> {
  public:
    ConnectAttempt(ServerAddress server, std::string user, std::string password,
                   std::chrono::milliseconds timeout);

    // Starts the thread and waits for an answer, the timeout or `abandon`. Null if there is no
    // connection; then `error` is the reason.
    std::shared_ptr<Connection> run();
    // Makes `run` return at once. Any thread.
    void abandon();
    const std::string& error() const { return error_; }

  private:
    void connect();
    void finish(std::shared_ptr<Connection> connection, std::string error);

    const ServerAddress server_;
    const std::string user_;
    const std::string password_;
    const std::chrono::milliseconds timeout_;

    std::mutex mutex_;
    std::condition_variable changed_;
    bool done_ = false;
    bool abandoned_ = false;
    std::shared_ptr<Connection> connection_;
    std::string error_;
};

}  // namespace bracken
