#include <semaphore>

#include "framework/threads/thread.h"
#include "tests/platform_mysql/lying_server.h"
#include "tests/platform_mysql/mysql_test.h"
#include "tests/support/child.h"

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
        {"greets with nothing", [](Peer& peer) { peer.send(""); }},
        {"answers the login with nonsense",
         [](Peer& peer) {
             peer.greet();
             peer.receive();
             peer.send("\xfb\xfb\xfb");
         }},
        {"offers TLS, but no more than that",
         [](Peer& peer) {
             peer.greet("caching_sha2_password", true);
             peer.receive();
             peer.switchTo("sha256_password");
             peer.awaitEnd();
             EXPECT_EQ(peer.received().find("root"), std::string::npos) << "not even the login";
         }},
        {"refuses", [](Peer& peer) { peer.sendError(1040, nastyText); }},
    };
    for (const auto& [lie, script] : lies) {
        SCOPED_TRACE(lie);
        LyingServer server(script);
        EXPECT_FALSE(database.Connect());
        expectFailure();
    }
    EXPECT_EQ(database.ErrorMessage, nastyText) << "the last one's";
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

// Two methods that end in the password itself. A server names them at once or by a switch.
class Sha2Test : public LyingTest,
                 public testing::WithParamInterface<std::tuple<const char*, bool>> {
  protected:
    // Names the method, then asks for the password in every way that it knows, until it or what
    // looks like it sealed with the public key has come, or the client has gone. Gives what came
    // after the naming.
    std::string extort(Peer& peer, bool tls) {
        const auto [method, atOnce] = GetParam();
        peer.greet(atOnce ? method : "mysql_native_password", tls);
        if (tls) {
            peer.receive();
            peer.encrypt();
        }
        if (!atOnce) {
            peer.receive();
            peer.switchTo(method);
        }
        const size_t named = peer.received().size();
        for (std::string reply; !gotPassword && (reply = peer.receive()) != "";) {
            gotPassword = reply.size() == sealedSize || reply.find(password) != std::string::npos;
            const bool forKey = method == "sha256_password"s || reply == "\2";
            if (!gotPassword) peer.send(forKey ? "\1" + publicKey : "\1\4");
        }
        return peer.received().substr(named);
    }

    static constexpr size_t sealedSize = 256;
    const std::string publicKey = outputOf({"openssl", "pkey", "-in", serverKey(), "-pubout"});
    bool gotPassword = false;
};

INSTANTIATE_TEST_SUITE_P(
    , Sha2Test,
    testing::Combine(testing::Values("caching_sha2_password", "sha256_password"), testing::Bool()));

TEST_P(Sha2Test, ThePasswordGoesOutInTlsAndOnTheLocalSocketOnly) {
    const std::string address = LyingServer::host;
    const std::string port = ":" + std::to_string(server().port());
    for (const auto& [host, tls] : {std::pair(address, false),
                                    {address + port, false},
                                    {address + port, true},
                                    {LyingServer::socketPath(), false}}) {
        SCOPED_TRACE(host + (tls ? " by TLS" : ""));
        const bool local = !host.starts_with(address);
        const bool safe = tls || local;
        gotPassword = false;
        database.Host = host;
        std::string got;
        LyingServer liar(
            [&, tls = tls](Peer& peer) {
                got = extort(peer, tls);
                peer.sendOk();
            },
            local ? host : address);
        EXPECT_EQ(database.Connect(), safe) << database.ErrorMessage;
        liar.received();
        EXPECT_EQ(gotPassword, safe);
        EXPECT_EQ(got.empty(), !safe);
        EXPECT_EQ(database.ErrorMessage.starts_with("The password was not sent: "), !safe);
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

// The rows up to the lie are read; then comes the exception, never an end.
TEST_F(LyingTest, RowsThatBreakOffRaise) {
    const std::string row = "\3one\3two";
    const std::pair<const char*, std::function<void(Peer&)>> lies[] = {
        {"half a row", [](Peer& peer) { peer.sendRaw("\x64\0\0\x06\x0ahalf a row"s); }},
        {"beyond all memory", [](Peer& peer) { peer.send("\3one\xfetoolong!"s); }},
        {"a field short", [](Peer& peer) { peer.send("\3one"); }},
        {"an error", [](Peer& peer) { peer.sendError(1317, nastyText); }},
    };
    for (const auto& [lie, script] : lies) {
        SCOPED_TRACE(lie);
        LyingServer server([&, &script = script](Peer& peer) {
            peer.admitAndAwaitStatement();
            peer.sendColumns(2);
            peer.send(row);
            script(peer);
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

}  // namespace

}  // namespace bracken::test
