#include <thread>

#include "framework/threads/thread.h"
#include "tests/platform_mysql/mysql_test.h"
#include "tests/support/child.h"

namespace bracken::test {

namespace {

std::string idOf(MySQLDatabase& database) {
    return std::string(database.SQLSelect("select connection_id()")->fieldText(1));
}

void endConnection(MySQLDatabase& database) {
    server().run("kill connection " + idOf(database));
}

// Every test runs over a plain and over an encrypted connection: the two are lost in different
// ways.
class LostTest : public MySQLTest, public testing::WithParamInterface<bool> {
  protected:
    static void SetUpTestSuite() {
        std::string key = server().folder() + "/key.pem";
        std::string certificate = server().folder() + "/certificate.pem";
        outputOf({"openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt",
                  "ec_paramgen_curve:prime256v1", "-nodes", "-subj", "/CN=someone", "-keyout", key,
                  "-out", certificate});
        encryption() = {"--ssl-key=" + key, "--ssl-cert=" + certificate};
    }
    void SetUp() override {
        server().runWith(GetParam() ? encryption() : std::vector<std::string>());
    }

    static std::vector<std::string>& encryption() {
        static std::vector<std::string> options;
        return options;
    }
};

// One suite each, so that the server is not started anew for every test.
INSTANTIATE_TEST_SUITE_P(Plain, LostTest, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(Encrypted, LostTest, testing::Values(true));

TEST_P(LostTest, EncryptsIfTheServerCan) {
    MySQLDatabase database;
    connect(database);
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

TEST_P(LostTest, EndedConnectionFailsTheNextStatement) {
    MySQLDatabase database;
    connect(database);
    endConnection(database);
    EXPECT_EQ(database.SQLSelect("select 1"), nullptr);
    EXPECT_TRUE(database.Error);
    EXPECT_NE(database.ErrorMessage, "");
    database.SQLExecute("drop table x");
    EXPECT_TRUE(database.Error) << "no connection comes back by itself";
    connect(database);
    EXPECT_EQ(select(database, "select 1"), (std::vector<Row>{{"1"}}));
}

TEST_P(LostTest, KilledServerFailsTheNextStatementAndTheNextConnect) {
    MySQLDatabase database;
    connect(database, "root", "", "127.0.0.1");
    server().kill();
    database.DatabaseName("mysql");
    EXPECT_FALSE(database.Error);
    EXPECT_EQ(database.SQLSelect("show databases"), nullptr);
    EXPECT_TRUE(database.Error);
    EXPECT_FALSE(database.Connect());
    EXPECT_TRUE(database.Error);
    SetUp();
}

TEST_P(LostTest, RowsThatBreakOffAreNeverAllRows) {
    MySQLDatabase database;
    connect(database);
    std::string id = idOf(database);
    auto cursor = database.SQLSelect("select seq, repeat('x', 1000) from mysql.seq_1_to_1000000");
    ASSERT_FALSE(database.Error) << database.ErrorMessage;
    server().run("kill connection " + id);
    int rows = 0;
    auto readAll = [&] {
        for (; !cursor->EOF_(); cursor->MoveNext()) rows++;
    };
    EXPECT_THROW(readAll(), DatabaseException);
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
