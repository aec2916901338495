#pragma once

#include <mysql.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/mysql/row_stream.h"

namespace bracken {

// An open connection. Its calls wait for the server and need no baton. Only one may be running at a
// time, apart from `interrupt`.
class Connection {
  public:
    // Owns `handle` from here on, which is connected.
    explicit Connection(MYSQL* handle);
    // Closes it; rows not read yet are dropped.
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    struct Answer {
        // The server's or the library's message if the statement failed.
        std::optional<std::string> error;
        // Null if it failed, or has no result.
        std::shared_ptr<RowStream> rows;
    };
    // Runs a statement. Unread rows of an earlier one are read into memory first. With `waitForAll`
    // it waits for all rows of this one too, and fails if they end with an error.
    Answer run(const std::string& statement, bool waitForAll);
    // Makes `name` the current database if the server allows it.
    void select(const std::string& name);

    // Makes a running call return soon, with an error; the connection is lost. Any thread.
    void interrupt() const;

  private:
    void finishRows();
    Answer failure() const;

    MYSQL* handle_;
    // A duplicate of the library's socket, which the library may close at any time.
    int socket_;
    std::shared_ptr<RowStream> rows_;
};

}  // namespace bracken
