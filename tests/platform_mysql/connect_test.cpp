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

TEST_F(ConnectTest, ReconnectsWithAnotherLogin) {
    server().run("create or replace user other@localhost identified by 'a\"b''c'");
    MySQLDatabase database;
    connect(database);
    connect(database, "other", "a\"b'c");
    EXPECT_EQ(select(database, "select user()"), (std::vector<Row>{{"other@localhost"}}));
}

TEST_F(ConnectTest, RefusedLoginGivesTheServersWordsAndNoPassword) {
    MySQLDatabase database;
    connect(database);
    database.UserName = "nobody";
    database.Password = "s3cret";
    EXPECT_FALSE(database.Connect());
    EXPECT_TRUE(database.Error);
    EXPECT_EQ(database.ErrorMessage,
              "Access denied for user 'nobody'@'localhost' (using password: YES)");

    EXPECT_EQ(database.SQLSelect("select 1"), nullptr) << "the former login must be gone";
    EXPECT_TRUE(database.Error);
    EXPECT_NE(database.ErrorMessage, "");
}

TEST_F(ConnectTest, EmptyPasswordIsSentAsSuch) {
    server().run("create or replace user guarded@localhost identified by 'x'");
    setenv("MYSQL_PWD", "x", 1);
    MySQLDatabase database;
    database.Host = "localhost";
    database.UserName = "guarded";
    EXPECT_FALSE(database.Connect());
    unsetenv("MYSQL_PWD");
    EXPECT_EQ(database.ErrorMessage,
              "Access denied for user 'guarded'@'localhost' (using password: NO)");
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
