#include <semaphore>

#include "framework/threads/thread.h"
#include "tests/platform_mysql/lying_server.h"
#include "tests/platform_mysql/mysql_test.h"

namespace bracken::test {

namespace {

using namespace std::string_literals;

const std::string password = "s3cret-p4ssword";
// What a server may say: markup, control bytes, bytes that are no text.
const std::string nastyText = "<b>&amp;</b> \x01\x1b[31m\n\t\x7f \xff\xfe \" ' `%s%n";

class LyingTest : public MySQLTest {
  protected:
    LyingTest() {
        database.Host = LyingServer::host;
        database.UserName = "root";
        database.Password = password;
    }

    void expectConnect() { ASSERT_TRUE(database.Connect()) << database.ErrorMessage; }
    void expectFailure() const {
        EXPECT_TRUE(database.Error);
        EXPECT_NE(database.ErrorMessage, "");
        EXPECT_EQ(database.ErrorMessage.find(password), std::string::npos);
    }

    MySQLDatabase database;
};

TEST_F(LyingTest, ConnectFailsOnServersThatAreNone) {
    const std::pair<const char*, std::function<void(Peer&)>> lies[] = {
        {"closes at once", [](Peer&) {}},
        {"speaks another protocol",
         [](Peer& peer) { peer.sendRaw("HTTP/1.1 400 Bad Request\r\n\r\n"); }},
        {"announces more than it sends", [](Peer& peer) { peer.sendRaw("\xff\xff\xff\0\x0a"s); }},
        {"greets with nothing", [](Peer& peer) { peer.send(""); }},
        {"greets without an end",
         [](Peer& peer) {
             peer.send(
                 "\x0a"
                 "8.0.0"s);
         }},
        {"closes after the login",
         [](Peer& peer) {
             peer.greet();
             peer.receive();
         }},
        {"answers the login with nonsense",
         [](Peer& peer) {
             peer.greet();
             peer.receive();
             peer.send("\xfb\xfb\xfb");
         }},
    };
    for (const auto& [lie, script] : lies) {
        SCOPED_TRACE(lie);
        LyingServer server(script);
        EXPECT_FALSE(database.Connect());
        expectFailure();
    }
}

TEST_F(LyingTest, ConnectGivesUpOnAServerThatStaysSilent) {
    std::binary_semaphore givenUp(0);
    LyingServer server([&](Peer&) { givenUp.acquire(); });
    MySQLDatabase impatient{std::chrono::milliseconds(50)};
    impatient.Host = LyingServer::host;
    EXPECT_FALSE(impatient.Connect());
    EXPECT_NE(impatient.ErrorMessage.find(LyingServer::host), std::string::npos);
    givenUp.release();
}

TEST_F(LyingTest, QuitAbandonsConnecting) {
    std::binary_semaphore left(0);
    LyingServer server([&](Peer&) {
        platform.quit();
        left.acquire();
    });
    EXPECT_THROW(database.Connect(), UnwindSignal);
    left.release();
}

TEST_F(LyingTest, NoServerGetsThePasswordInClear) {
    for (const std::string& plugin : {"mysql_clear_password"s, "dialog"s, "mysql_old_password"s,
                                      "auth_gssapi_client"s, "../../tmp/plugin"s}) {
        SCOPED_TRACE(plugin);
        for (bool atOnce : {true, false}) {
            LyingServer server([&](Peer& peer) {
                peer.greet(atOnce ? plugin : "mysql_native_password");
                peer.receive();
                peer.send("\xfe" + plugin + "\0Password: \0"s);
                peer.awaitEnd();
            });
            EXPECT_FALSE(database.Connect());
            expectFailure();
            EXPECT_EQ(server.received().find(password), std::string::npos);
        }
    }
}

TEST_F(LyingTest, NoServerGetsALocalFile) {
    TempFolder folder;
    std::string file = folder.write("secret", "the file's content");
    for (const std::string& statement :
         {"show databases"s, "load data local infile '" + file + "' into table t"}) {
        LyingServer server([&](Peer& peer) {
            peer.admitAndAwaitStatement();
            peer.send("\xfb" + file);
            peer.receive();
            peer.sendOk();
            peer.awaitEnd();
        });
        {
            MySQLDatabase victim;
            connect(victim, "root", password, LyingServer::host);
            EXPECT_EQ(victim.SQLSelect(statement), nullptr);
            EXPECT_TRUE(victim.Error);
        }
        EXPECT_EQ(server.received().find("content"), std::string::npos);
    }
}

TEST_F(LyingTest, ErrorTextsArriveAsTheyStand) {
    {
        LyingServer server([](Peer& peer) { peer.sendError(1040, nastyText); });
        EXPECT_FALSE(database.Connect());
        EXPECT_EQ(database.ErrorMessage, nastyText);
    }
    LyingServer server([](Peer& peer) {
        peer.admitAndAwaitStatement();
        peer.sendError(1064, nastyText);
    });
    expectConnect();
    EXPECT_EQ(database.SQLSelect("show databases"), nullptr);
    EXPECT_EQ(database.ErrorMessage, nastyText);
}

// The rows up to the lie are read; then comes the exception, never an end.
TEST_F(LyingTest, RowsThatBreakOffRaise) {
    const std::string row = "\3one\3two";
    struct Lie {
        const char* name;
        std::function<void(Peer&)> tell;
    };
    const Lie lies[] = {
        {"half a row", [](Peer& peer) { peer.sendRaw("\x64\0\0\x06\x0ahalf a row"s); }},
        {"far too long", [](Peer& peer) { peer.send("\3one\xfd\xff\xff\xff"s); }},
        {"beyond all memory", [](Peer& peer) { peer.send("\3one\xfetoolong!"s); }},
        {"a field short", [](Peer& peer) { peer.send("\3one"); }},
        {"an error", [](Peer& peer) { peer.sendError(1317, nastyText); }},
    };
    for (const Lie& lie : lies) {
        SCOPED_TRACE(lie.name);
        LyingServer server([&](Peer& peer) {
            peer.admitAndAwaitStatement();
            peer.sendColumns(2);
            peer.send(row);
            lie.tell(peer);
        });
        expectConnect();
        auto cursor = database.SQLSelect("select * from t");
        ASSERT_FALSE(database.Error) << database.ErrorMessage;
        EXPECT_EQ(cursor->fieldText(2), "two");
        EXPECT_THROW(
            {
                cursor->MoveNext();
                cursor->EOF_();
            },
            DatabaseException);
        expectFailure();
    }
    EXPECT_EQ(database.ErrorMessage, nastyText) << "the last one's";
}

TEST_F(LyingTest, ListsThatBreakOffFailAsAWhole) {
    LyingServer server([](Peer& peer) {
        peer.admitAndAwaitStatement();
        peer.sendColumns(1);
        peer.send("\3one");
        peer.sendError(1317, "interrupted");
    });
    expectConnect();
    EXPECT_EQ(database.SQLSelect("SHOW tables in x"), nullptr);
    EXPECT_EQ(database.ErrorMessage, "interrupted");
}

TEST_F(LyingTest, NonsenseInsteadOfAResult) {
    const std::string answers[] = {""s,
                                   "\xfe"s,
                                   "\xfc"s,
                                   "\xfd\xff\xff\xff"s,
                                   "\xfe\xff\xff\xff\xff\xff\xff\xff\xff"s,
                                   "\2"s,
                                   "\xff"s,
                                   "\xff\x28"s,
                                   std::string(100, '\xfb'),
                                   "\0"s};
    for (const std::string& answer : answers) {
        SCOPED_TRACE(testing::PrintToString(answer));
        LyingServer server([&](Peer& peer) {
            peer.admitAndAwaitStatement();
            peer.send(answer);
        });
        expectConnect();
        EXPECT_EQ(database.SQLSelect("select 1"), nullptr);
        EXPECT_EQ(database.SQLSelect("select 2"), nullptr);
        expectFailure();
    }
}

}  // namespace

}  // namespace bracken::test
