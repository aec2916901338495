#include "tests/platform_mysql/mysql_test.h"

namespace bracken::test {

namespace {

class ConnectTest : public MySQLTest {};

TEST_F(ConnectTest, ReachesTheServerBySocketAndByPort) {
    for (const char* host : {"localhost", "127.0.0.1"}) {
        MySQLDatabase database;
        connect(database, "root", "", host);
        EXPECT_EQ(select(database, "select @@pid_file"),
                  (std::vector<Row>{{server().folder() + "/pid"}}));
    }
}

TEST_F(ConnectTest, ALoginTakesThePlaceOfTheFormerIfItSucceeds) {
    server().run("create or replace user other@localhost identified by 'a\"b''c'");
    setenv("MYSQL_PWD", "a\"b'c", 1);
    MySQLDatabase database;
    connect(database);
    const std::string denied = "Access denied for user ";
    for (const auto& [user, password, error] :
         {std::tuple("nobody", "s3cret", denied + "'nobody'@'localhost' (using password: YES)"),
          // Sent as such, and not looked for elsewhere.
          {"other", "", denied + "'other'@'localhost' (using password: NO)"},
          {"other", "a\"b'c", ""}}) {
        database.UserName = user;
        database.Password = password;
        EXPECT_EQ(database.Connect(), error.empty());
        EXPECT_EQ(database.Error, !error.empty());
        EXPECT_EQ(database.ErrorMessage, error);
        EXPECT_EQ(select(database, "select user()"),
                  (std::vector<Row>{{error.empty() ? "other@localhost" : "root@localhost"}}));
    }
    unsetenv("MYSQL_PWD");
}

TEST_F(ConnectTest, NameThatResolvesToNothing) {
    MySQLDatabase database;
    database.Host = "no-such-host.invalid";
    EXPECT_FALSE(database.Connect());
    EXPECT_NE(database.ErrorMessage.find(database.Host), std::string::npos)
        << database.ErrorMessage;
}

// To the library each of these would be options, a list of hosts or a plug-in.
TEST_F(ConnectTest, HostsThatAreNoHostsAreRefused) {
    const std::string socketOption = "socket=" + server().socket();
    for (const std::string& host :
         {socketOption, std::string("localhost;user=root"), std::string("localhost,127.0.0.1"),
          std::string("replication://localhost")}) {
        MySQLDatabase database;
        database.Host = host;
        database.UserName = "root";
        EXPECT_FALSE(database.Connect()) << host;
        EXPECT_EQ(database.ErrorMessage.find("\"" + host + "\" is not a host name"), 0)
            << database.ErrorMessage;
    }
}

TEST_F(ConnectTest, DatabaseIsChosenOnTheLiveConnectionOnly) {
    server().run("create or replace database chosen");
    MySQLDatabase database;
    database.DatabaseName("chosen");
    connect(database);
    const std::string current = "select ifnull(database(), 'none')";
    EXPECT_EQ(select(database, current), (std::vector<Row>{{"none"}}));
    database.DatabaseName("chosen");
    EXPECT_EQ(select(database, current), (std::vector<Row>{{"chosen"}}));

    database.DatabaseName("missing");
    EXPECT_FALSE(database.Error) << "left to the next statement";
    EXPECT_EQ(select(database, current), (std::vector<Row>{{"chosen"}}));
}

}  // namespace

}  // namespace bracken::test
