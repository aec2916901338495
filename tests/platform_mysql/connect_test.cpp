#include <thread>

#include "framework/threads/thread.h"
#include "platform/mysql/server_address.h"
#include "tests/platform_mysql/mysql_test.h"

namespace bracken::test {

using namespace std::string_literals;

using Connect = MySQLTest;

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
    for (const auto& [host, words] : {std::pair("localhost:1"s, "localhost"),
                                      {path + "e", "/a=b;c:1,de"},
                                      {"/" + std::string(200, 'x'), "at most 107 bytes"}}) {
        database.Host = host;
        EXPECT_FALSE(database.Connect());
        EXPECT_NE(database.ErrorMessage.find(words), std::string::npos) << database.ErrorMessage;
    }
}

TEST_F(Connect, HostsAreReadAsNameAndPortOrSocket) {
    for (const auto& [host, wanted] : {std::pair("db:65535", "db|65535|"),
                                       {"fe80::1%eth0", "fe80::1%eth0|0|"},
                                       {" [::1]:3307 ", "::1|3307|"}}) {
        ServerAddress to;
        EXPECT_FALSE(readAddress(host, to)) << host;
        EXPECT_EQ(to.name + "|" + std::to_string(to.port) + "|" + to.socket, wanted);
    }
    // To the library some of these would be options, a list of hosts or a plug-in.
    for (const char* host : {" ", "db:0", "db:65536", "db:", "db:3x", ":3306", "[::1", "[::1]3306",
                             "socket=/s", "db;user=root", "a,b", "replication://db"}) {
        ServerAddress none;
        EXPECT_TRUE(readAddress(host, none)) << host;
    }
}

TEST_F(Connect, ALoginTakesThePlaceOfTheFormerIfItSucceeds) {
    server().run("create user other@localhost identified by 'a\"b''c'");
    // A password of none is sent as such, and not looked for elsewhere.
    setenv("MYSQL_PWD", "a\"b'c", 1);
    connect();
    database.UserName = "other";
    EXPECT_FALSE(database.Connect());
    EXPECT_TRUE(database.Error);
    EXPECT_EQ(database.ErrorMessage,
              "Access denied for user 'other'@'localhost' (using password: NO)");
    EXPECT_EQ(select("select user()"), "root@localhost|\n");
    database.Password = "a\"b'c";
    EXPECT_TRUE(database.Connect());
    EXPECT_EQ(database.ErrorMessage, "");
    EXPECT_EQ(select("select user()"), "other@localhost|\n");
    unsetenv("MYSQL_PWD");
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
    EXPECT_EQ(database.SQLSelect("show databases"), nullptr);
    EXPECT_TRUE(database.Error) << "no connection comes back by itself";
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

TEST_F(Connect, TheCommandLineListsWhatTheServerHas) {
    TempFolder folder;
    folder.write("src/a.php", "users");
    folder.write("password", "tea & biscuits\n");
    server().run(
        "create database `a``b`; use `a``b`; create table users (i int); create view `x y` as "
        "select 1; create user scanner identified by 'tea & biscuits'; grant all on *.* to "
        "scanner");
    // Options, environment, what is written, then the status.
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"", "BRACKEN_PASSWORD='tea & biscuits'", "users\ta.php\nx y\t\n1\n"},
        {"--port=" + std::to_string(server().port()) +
             " --unused --password-file=" + folder.path("password"),
         "BRACKEN_PASSWORD=wrong", "x y\t\n1\n"}};
    for (const auto& [options, variables, output] : cases) {
        EXPECT_EQ(outputOf({"sh", "-c",
                            variables + " " BRACKEN_SCAN " --format=tsv --user=scanner " +
                                "--database='a`b' " + options + " " + folder.path("src") +
                                " </dev/null 2>&1; echo $?"}),
                  output);
    }
}

}  // namespace bracken::test
