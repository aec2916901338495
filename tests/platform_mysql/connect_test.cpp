#include <filesystem>
#include <thread>

#include "framework/threads/thread.h"
#include "platform/mysql/server_address.h"
#include "tests/platform_mysql/mysql_test.h"

namespace bracken::test {
namespace {

using namespace std::string_literals;

class Connect : public MySQLTest {};

TEST_F(Connect, ReachesTheServerBySocketAndByPortAndEncrypts) {
    const std::string port = ":" + std::to_string(server().port());
    const std::string path = server().folder() + "/a=b;c:1,d";
    std::filesystem::create_symlink(server().socket(), path);
    for (const auto& [host, bySocket] : {std::pair("localhost"s, true),
                                         {path, true},
                                         {"127.0.0.1", false},
                                         {"\t127.0.0.1" + port, false},
                                         {"localhost" + port + " ", false}}) {
        connect(host);
        EXPECT_EQ(select("select @@pid_file, host = 'localhost' "
                         "from information_schema.processlist where id = connection_id()"),
                  server().folder() + "/pid|" + (bySocket ? "1" : "0") + "|\n");
        EXPECT_NE(select("show session status like 'Ssl_cipher'"), "Ssl_cipher||\n");
    }
    for (const std::string& elsewhere : {"localhost:1"s, path + "e"}) {
        database.Host = elsewhere;
        EXPECT_FALSE(database.Connect()) << elsewhere;
    }
}

TEST_F(Connect, ALoginTakesThePlaceOfTheFormerIfItSucceeds) {
    server().run("create or replace user other@localhost identified by 'a\"b''c'");
    // A password of none is sent as such, and not looked for elsewhere.
    setenv("MYSQL_PWD", "a\"b'c", 1);
    connect();
    const std::string denied = "Access denied for user ";
    for (const auto& [user, password, error] :
         {std::tuple("nobody", "s3cret", denied + "'nobody'@'localhost' (using password: YES)"),
          {"other", "", denied + "'other'@'localhost' (using password: NO)"},
          {"other", "a\"b'c", ""}}) {
        database.UserName = user;
        database.Password = password;
        EXPECT_EQ(database.Connect(), error.empty());
        EXPECT_EQ(database.Error, !error.empty());
        EXPECT_EQ(database.ErrorMessage, error);
        EXPECT_EQ(select("select user()"), (error.empty() ? "other"s : "root") + "@localhost|\n");
    }
    unsetenv("MYSQL_PWD");
}

TEST_F(Connect, HostsAreReadAsNameAndPortOrSocket) {
    for (const auto& [host, wanted] : {std::pair("db", "db|0|"),
                                       {"db:65535", "db|65535|"},
                                       {"fe80::1%eth0", "fe80::1%eth0|0|"},
                                       {" [::1]:3307 ", "::1|3307|"},
                                       {"/run/a b:3,=;", "|0|/run/a b:3,=;"}}) {
        ServerAddress to;
        EXPECT_FALSE(readAddress(host, to)) << host;
        EXPECT_EQ(to.name + "|" + std::to_string(to.port) + "|" + to.socket, wanted);
    }
    // To the library some of these would be options, a list of hosts or a plug-in.
    for (const char* host :
         {" ", "db:0", "db:65536", "db:4294967297", "db:", "db:3x", "db:-1", ":3306", "[::1",
          "[::1]3306", "socket=/s", "db;user=root", "a,b", "replication://db"}) {
        ServerAddress none;
        EXPECT_TRUE(readAddress(host, none)) << host;
    }
    for (const auto& [host, words] :
         {std::pair(" db:70000"s, "\"db:70000\" is not a host name: the port must be a number"),
          {"/" + std::string(200, 'x'), "at most 107 bytes"},
          {"no-such-host.invalid", "no-such-host.invalid"}}) {
        database.Host = host;
        EXPECT_FALSE(database.Connect());
        EXPECT_NE(database.ErrorMessage.find(words), std::string::npos) << database.ErrorMessage;
    }
}

TEST_F(Connect, DatabaseIsChosenOnTheLiveConnectionOnly) {
    server().run("create or replace database chosen");
    database.DatabaseName("chosen");
    connect();
    for (const auto& [name, current] :
         {std::pair("missing", "none"), {"chosen", "chosen"}, {"missing", "chosen"}}) {
        database.DatabaseName(name);
        EXPECT_FALSE(database.Error) << "left to the next statement";
        EXPECT_EQ(select("select ifnull(database(), 'none')"), current + "|\n"s);
    }
}

TEST_F(Connect, ALostConnectionFailsEveryStatementUntilTheNextConnect) {
    connect("127.0.0.1");
    auto cursor = database.SQLSelect("select connection_id() from mysql.seq_1_to_1000000");
    server().run("kill connection " + std::string(cursor->fieldText(1)));
    int rows = 0;
    EXPECT_THROW(for (; !cursor->EOF_(); cursor->MoveNext()) rows++, DatabaseException);
    EXPECT_GT(rows, 0);
    EXPECT_NE(database.ErrorMessage, "");
    EXPECT_THROW(cursor->EOF_(), DatabaseException) << "nor are they all rows at the second look";
    database.DatabaseName("mysql");
    for (const char* statement : {"show databases", "drop table x"}) {
        EXPECT_EQ(database.SQLSelect(statement), nullptr);
        EXPECT_TRUE(database.Error) << "no connection comes back by itself";
        EXPECT_NE(database.ErrorMessage, "");
    }
    connect("127.0.0.1");
    EXPECT_EQ(select("select 1"), "1|\n");
}

TEST_F(Connect, QuitAbandonsTheStatement) {
    connect();
    std::thread user([&] {
        while (server().run("select 1 from information_schema.processlist where info like "
                            "'select sleep%'") == "")
            continue;
        platform.quit();
    });
    EXPECT_THROW(database.SQLSelect("select sleep(1000)"), UnwindSignal);
    user.join();
}

}  // namespace
}  // namespace bracken::test
