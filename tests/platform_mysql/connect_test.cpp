#include <filesystem>

#include "platform/mysql/server_address.h"
#include "tests/platform_mysql/mysql_test.h"

namespace bracken::test {

namespace {

using namespace std::string_literals;

class ConnectTest : public MySQLTest {};

TEST_F(ConnectTest, ReachesTheServerBySocketAndByPort) {
    const std::string port = ":" + std::to_string(server().port());
    const std::string path = server().folder() + "/a=b;c:1,d";
    std::filesystem::create_symlink(server().socket(), path);
    for (const auto& [host, bySocket] : {std::pair("localhost"s, true),
                                         {" localhost\n", true},
                                         {path, true},
                                         {"127.0.0.1", false},
                                         {"\t127.0.0.1" + port, false},
                                         {"localhost" + port + " ", false}}) {
        MySQLDatabase database;
        connect(database, "root", "", host);
        EXPECT_EQ(select(database,
                         "select @@pid_file, host = 'localhost' "
                         "from information_schema.processlist where id = connection_id()"),
                  (std::vector<Row>{{server().folder() + "/pid", bySocket ? "1" : "0"}}));
    }
    for (const std::string& elsewhere : {"localhost:1"s, path + "e"}) {
        MySQLDatabase database;
        database.Host = elsewhere;
        EXPECT_FALSE(database.Connect()) << elsewhere;
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

TEST_F(ConnectTest, HostsAreReadAsNameAndPortOrSocket) {
    const auto read = [](const std::string& host) {
        ServerAddress address;
        if (readAddress(host, address)) return "refused"s;
        return address.name + "|" + std::to_string(address.port) + "|" + address.socket;
    };
    for (const auto& [host, wanted] : {std::pair("db", "db|0|"),
                                       {"db:1", "db|1|"},
                                       {"db:65535", "db|65535|"},
                                       {"::1", "::1|0|"},
                                       {"fe80::1%eth0", "fe80::1%eth0|0|"},
                                       {"[::1]", "::1|0|"},
                                       {" [::1]:3307 ", "::1|3307|"},
                                       {"/run/a b:3,=;", "|0|/run/a b:3,=;"}}) {
        EXPECT_EQ(read(host), wanted) << host;
    }
    // To the library some of these would be options, a list of hosts or a plug-in.
    for (const char* host :
         {"", " ", "db:0", "db:65536", "db:4294967297", "db:", "db:3x", "db:-1", ":3306", "[::1",
          "[]", "[::1]3306", "[::1]:0", "socket=/s", "db;user=root", "a,b", "replication://db"}) {
        EXPECT_EQ(read(host), "refused") << host;
    }
    MySQLDatabase database;
    for (const auto& [host, words] :
         {std::pair(" db:70000"s, "\"db:70000\" is not a host name: the port must be a number"),
          {"/" + std::string(200, 'x'), "at most 107 bytes"},
          {"no-such-host.invalid", "no-such-host.invalid"}}) {
        database.Host = host;
        EXPECT_FALSE(database.Connect());
        EXPECT_NE(database.ErrorMessage.find(words), std::string::npos) << database.ErrorMessage;
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
