#pragma once

#include "platform/mysql/mysql_database.h"
#include "tests/platform_mysql/loop_platform.h"
#include "tests/support/private_server.h"

namespace bracken::test {

// A file with an RSA key and a certificate that vouches for nobody.
inline std::string serverKey() {
    static const TempFolder folder;
    static const std::string file = folder.path("key.pem");
    static const std::string made =
        outputOf({"openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-subj",
                  "/CN=someone", "-keyout", file, "-out", file});
    return file;
}

// The one real server of this test program; it encrypts.
inline PrivateServer& server() {
    static PrivateServer theServer({"--ssl-key=" + serverKey(), "--ssl-cert=" + serverKey()});
    return theServer;
}

// A test on the main thread of a program whose event loop runs.
class MySQLTest : public testing::Test {
  protected:
    MySQLTest() {
        static const bool prepared = (server(), MySQLDatabase::prepareLibrary(), true);
        EXPECT_TRUE(prepared);
    }

    // Logs in as root; expects success.
    void connect(const std::string& host = "localhost") {
        database.Host = host;
        database.UserName = "root";
        ASSERT_TRUE(database.Connect()) << database.ErrorMessage;
    }
    // The rows of a query that must succeed: fields each before a "|", a line a row.
    std::string select(const std::string& statement) {
        auto cursor = database.SQLSelect(statement);
        EXPECT_FALSE(database.Error) << statement << ": " << database.ErrorMessage;
        std::string rows;
        for (; !cursor->EOF_(); cursor->MoveNext(), rows += "\n")
            for (int n = 1; n <= cursor->FieldCount(); n++)
                rows += std::string(cursor->fieldText(n)) + "|";
        return rows;
    }

    LoopPlatform platform;
    MySQLDatabase database;
};

}  // namespace bracken::test
