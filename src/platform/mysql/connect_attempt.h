#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>

#include "platform/mysql/connection.h"

namespace bracken {

// One attempt to connect, on a thread of its own. The client library can't be interrupted while it
// looks up a name, and knows no limit for a server that accepts and stays silent; so whoever waits
// may leave. The attempt, which its thread keeps alive, then ends when the server says or closes
// something, and closes what it had opened.
class ConnectAttempt : public std::enable_shared_from_this<ConnectAttempt> {
  public:
    ConnectAttempt(std::string host, std::string user, std::string password,
                   std::chrono::milliseconds timeout);

    // Starts the thread and waits until there is an answer, the time is up, or the attempt has been
    // abandoned. Null if there is no connection; `error` says why.
    std::shared_ptr<Connection> run();
    // Makes `run` return at once. Any thread.
    void abandon();
    const std::string& error() const { return error_; }

  private:
    void connect();
    void finish(std::shared_ptr<Connection> connection, std::string error);

    const std::string host_;
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
