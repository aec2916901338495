#pragma once

#include "platform/mysql/mysql_database.h"
#include "tests/platform_mysql/loop_platform.h"
#include "tests/support/private_server.h"

namespace bracken::test {

// The one real server of this test program; it encrypts.
PrivateServer& server();
// A file with an RSA key and a certificate that vouches for nobody.
std::string serverKey();

// A test on the main thread of a program whose event loop runs.
class MySQLTest : public testing::Test {
  protected:
    MySQLTest();

    // Logs in as root; expects success.
    void connect(const std::string& host = "localhost");
    // The rows of a query that must succeed: fields each before a "|", a line a row.
    std::string select(const std::string& statement);

    LoopPlatform platform;
    MySQLDatabase database;
};

}  // namespace bracken::test
