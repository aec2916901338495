#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "framework/database/database.h"

namespace bracken {

class Connection;

// A connection to a MySQL or MariaDB server.
// - Encrypted if the server can, but without a check of the server's identity.
// - The password itself is sent over TLS or the local socket only.
// - `Host` may name a port or a socket (server_address.h). Those it does not name are the client
//   library's: the environment's MYSQL_TCP_PORT and MYSQL_UNIX_PORT, else its defaults.
class MySQLDatabase : public Database {
  public:
    // Prepares the client library; once, before the process has threads.
    static void prepareLibrary();

    // Connecting takes at most `connectTimeout`, including the look-up of the host's name.
    explicit MySQLDatabase(std::chrono::milliseconds connectTimeout = std::chrono::seconds(10));
    ~MySQLDatabase() override;

    void DatabaseName(const std::string& name) override;
    bool Connect() override;
    // The rows arrive while the cursor is read; those of `show` and `describe` all before it
    // returns.
    Ref<DatabaseCursor> SQLSelect(const std::string& statement) override;
    void SQLExecute(const std::string& statement) override;

  private:
    void setOutcome(const std::optional<std::string>& error);

    const std::chrono::milliseconds connectTimeout_;
    // Null before the first login. Shared with the cursors that read from it.
    std::shared_ptr<Connection> connection_;
};

}  // namespace bracken
