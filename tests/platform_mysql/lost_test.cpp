#include <thread>

#include "framework/threads/thread.h"
#include "tests/platform_mysql/mysql_test.h"

namespace bracken::test {

namespace {

std::string idOf(MySQLDatabase& database) {
    return std::string(database.SQLSelect("select connection_id()")->fieldText(1));
}

// Every test runs over a plain and over an encrypted connection: the two are lost in different
// ways.
class LostTest : public MySQLTest, public testing::WithParamInterface<bool> {
  protected:
    void SetUp() override {
        server().runWith(GetParam() ? std::vector<std::string>{"--ssl-key=" + serverKey(),
                                                               "--ssl-cert=" + serverKey()}
                                    : std::vector<std::string>());
    }
};

// One suite each, so that the server is not started anew for every test.
INSTANTIATE_TEST_SUITE_P(Plain, LostTest, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(Encrypted, LostTest, testing::Values(true));

// A certificate of the user's own has no place where it could be named.
TEST_P(LostTest, EncryptsIfTheServerCan) {
    server().run(
        "create or replace user encrypted@localhost require ssl;"
        "create or replace user certified@localhost require x509");
    MySQLDatabase database;
    connect(database);
    for (const auto& [user, admitted] :
         {std::pair("encrypted", GetParam()), {"certified", false}}) {
        database.UserName = user;
        EXPECT_EQ(database.Connect(), admitted) << user << ": " << database.ErrorMessage;
        EXPECT_EQ(database.ErrorMessage.find("Access denied for user '"),
                  admitted ? std::string::npos : 0);
    }
    auto cipher = select(database, "show session status like 'Ssl_cipher'");
    ASSERT_EQ(cipher.size(), 1u);
    EXPECT_EQ(cipher[0][1] != "", GetParam());
}

// The limit on connecting must not outlive it: a statement may wait long for a lock, and then
// happen.
TEST_P(LostTest, StatementsMayTakeLongerThanConnecting) {
    MySQLDatabase database{std::chrono::milliseconds(3000)};
    connect(database);
    EXPECT_EQ(select(database, "select sleep(3.5)"), (std::vector<Row>{{"0"}}));
}

TEST_P(LostTest, LostConnectionFailsTheNextStatementsUntilTheNextConnect) {
    for (bool serverToo : {false, true}) {
        MySQLDatabase database;
        connect(database, "root", "", "127.0.0.1");
        if (serverToo) {
            server().kill();
        } else {
            server().run("kill connection " + idOf(database));
        }
        database.DatabaseName("mysql");
        EXPECT_FALSE(database.Error);
        for (const char* statement : {"show databases", "drop table x"}) {
            EXPECT_EQ(database.SQLSelect(statement), nullptr);
            EXPECT_TRUE(database.Error) << "no connection comes back by itself";
            EXPECT_NE(database.ErrorMessage, "");
        }
        EXPECT_EQ(database.Connect(), !serverToo);
        EXPECT_EQ(database.SQLSelect("select 1") == nullptr, serverToo);
        SetUp();
    }
}

TEST_P(LostTest, RowsThatBreakOffAreNeverAllRows) {
    MySQLDatabase database;
    connect(database);
    std::string id = idOf(database);
    auto cursor = database.SQLSelect("select seq, repeat('x', 1000) from mysql.seq_1_to_1000000");
    ASSERT_FALSE(database.Error) << database.ErrorMessage;
    server().run("kill connection " + id);
    int rows = 0;
    EXPECT_THROW(for (; !cursor->EOF_(); cursor->MoveNext()) rows++, DatabaseException);
    EXPECT_GT(rows, 0);
    EXPECT_TRUE(database.Error);
    EXPECT_NE(database.ErrorMessage, "");
    EXPECT_THROW(cursor->EOF_(), DatabaseException) << "nor are they at the second look";
}

TEST_P(LostTest, QuitAbandonsTheStatement) {
    MySQLDatabase database;
    connect(database);
    std::thread user([&] {
        while (server().run(
                   "select 1 from information_schema.processlist where info like '%from_quit%' "
                   "and info not like '%processlist%'") == "") {
        }
        platform.quit();
    });
    EXPECT_THROW(database.SQLSelect("select sleep(1000) as from_quit"), UnwindSignal);
    user.join();
}

}  // namespace

}  // namespace bracken::test
