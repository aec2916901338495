#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "framework/threads/baton.h"
#include "platform/mysql/mysql_database.h"
#include "tests/platform_mysql/loop_platform.h"
#include "tests/support/private_server.h"

namespace bracken::test {

using Row = std::vector<std::string>;

// The one real server of this test program. A test may leave it with other options, but running.
PrivateServer& server();
// A file with an RSA key and a certificate that vouches for nobody, for servers that encrypt.
std::string serverKey();

// What is left of the cursor, by the fields' texts; closes it.
std::vector<Row> rowsOf(DatabaseCursor& cursor);

// A test on the main thread of a program whose event loop runs.
class MySQLTest : public testing::Test {
  protected:
    // Sets the login and connects; expects success.
    static void connect(MySQLDatabase& database, const std::string& user = "root",
                        const std::string& password = "", const std::string& host = "localhost");
    // Runs a query that must succeed, and gives its rows.
    static std::vector<Row> select(MySQLDatabase& database, const std::string& statement);
    static void execute(MySQLDatabase& database, const std::string& statement);

    LoopPlatform platform;
    baton::Hold hold;
};

}  // namespace bracken::test
