#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "framework/database/database.h"

namespace bracken {

class Connection;

// A connection to a MySQL or MariaDB server, encrypted if the server can, though without a check of
// its identity; without encryption no server gets the password itself but over the local socket.
// Port and socket are the client library's: MYSQL_TCP_PORT and MYSQL_UNIX_PORT of the environment,
// else its defaults.
class MySQLDatabase : public Database {
  public:
    // Prepares the client library; once, before the process has threads.
    static void prepareLibrary();

    // Connecting takes at most this long, the look-up of the host's name included.
    explicit MySQLDatabase(std::chrono::milliseconds connectTimeout = std::chrono::seconds(10));
    ~MySQLDatabase() override;

    void DatabaseName(const std::string& name) override;
    bool Connect() override;
    // The rows stream in while the cursor is read; those of `show` and `describe` are all here.
    Ref<DatabaseCursor> SQLSelect(const std::string& statement) override;
    void SQLExecute(const std::string& statement) override;

  private:
    void setOutcome(const std::optional<std::string>& error);

    const std::chrono::milliseconds connectTimeout_;
    // Null while there is none. Shared with the cursors that read from it.
    std::shared_ptr<Connection> connection_;
};

}  // namespace bracken
