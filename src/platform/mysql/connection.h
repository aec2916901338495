#pragma once

#include <mysql.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/mysql/row_stream.h"

namespace bracken {

// An open connection. Its calls wait for the server and need no baton; they are made one at a time,
// all but `interrupt`.
class Connection {
  public:
    // Takes over a connected handle.
    explicit Connection(MYSQL* handle);
    // Closes it; rows still on their way are given up.
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    struct Answer {
        // The server's or the library's words if the statement failed.
        std::optional<std::string> error;
        // Null if it failed, or gives no rows.
        std::shared_ptr<RowStream> rows;
    };
    // Runs a statement. Rows of an earlier one that are still on their way come into memory first.
    // With `whole` it waits for all rows of this one too, and fails if they break off.
    Answer run(const std::string& statement, bool whole);
    // Makes `name` the current database if the server lets it.
    void select(const std::string& name);

    // Makes a call under way return soon, with an error; the connection is lost. Any thread.
    void interrupt() const;

  private:
    void awaitRows();
    Answer failure() const;

    MYSQL* handle_;
    // The connection's socket by a descriptor of our own: the library may close its own at any
    // time.
    int socket_;
    std::shared_ptr<RowStream> rows_;
};

}  // namespace bracken
