#include <semaphore>

#include "framework/threads/thread.h"
#include "tests/platform_mysql/lying_server.h"
#include "tests/support/child.h"

namespace bracken::test {
namespace {

using namespace std::string_literals;
using Script = std::function<void(Peer&)>;

const std::string password = "s3cret-p4ssword";
// What a server may say: markup, control bytes, bytes that are no text.
const std::string nastyText = "<b>&amp;</b> \x01\x1b[31m\n\t\x7f \xff\xfe \" ' `%s%n";

class Lying : public MySQLTest {
  protected:
    Lying() {
        database.Host = LyingServer::host;
        database.UserName = "root";
        database.Password = password;
    }
    // Connects to a server that plays this, which must fail; what the server got.
    std::string receivedBy(const Script& script) {
        LyingServer server(script);
        EXPECT_FALSE(database.Connect());
        expectFailure();
        return server.received();
    }
    void expectFailure() const {
        EXPECT_TRUE(database.Error);
        EXPECT_NE(database.ErrorMessage, "");
        EXPECT_EQ(database.ErrorMessage.find(password), std::string::npos);
    }
};

TEST_F(Lying, ConnectFailsOnServersThatAreNone) {
    receivedBy([](Peer& peer) { peer.sendRaw("HTTP/1.1 400 Bad Request\r\n\r\n"); });
    receivedBy([](Peer& peer) {
        peer.greet();
        peer.receive();
        peer.send("\xfb\xfb\xfb");
    });
    const std::string got = receivedBy([](Peer& peer) {
        peer.greet("caching_sha2_password", true);
        peer.receive();
        peer.switchTo("sha256_password");
        peer.awaitEnd();
    });
    EXPECT_EQ(got.find("root"), std::string::npos) << "nothing where TLS is only offered";
    receivedBy([](Peer& peer) { peer.sendError(1040, nastyText); });
    EXPECT_EQ(database.ErrorMessage, nastyText);
}

TEST_F(Lying, ASilentServerIsGivenUpAfterATimeOrByQuit) {
    for (bool quit : {false, true}) {
        std::binary_semaphore left(0);
        LyingServer server([&](Peer&) {
            if (quit) platform.quit();
            left.acquire();
        });
        MySQLDatabase impatient{std::chrono::milliseconds(quit ? 100'000 : 50)};
        impatient.Host = LyingServer::host;
        if (quit)
            EXPECT_THROW(impatient.Connect(), UnwindSignal);
        else
            EXPECT_FALSE(impatient.Connect());
        left.release();
    }
}

TEST_F(Lying, NoServerGetsThePasswordInClear) {
    for (const char* plugin : {"mysql_clear_password", "dialog", "mysql_old_password",
                               "auth_gssapi_client", "../../tmp/plugin"}) {
        for (bool atOnce : {true, false}) {
            const std::string got = receivedBy([&](Peer& peer) {
                peer.greet(atOnce ? plugin : "mysql_native_password");
                peer.receive();
                peer.send("\xfe"s + plugin + "\0Password: \0"s);
                peer.awaitEnd();
            });
            EXPECT_EQ(got.find(password), std::string::npos) << plugin;
        }
    }
}

// Two methods end in the password itself. A server names them at once or by a switch, then asks for
// the password until it, or what looks like it sealed with the public key, has come or the client
// has gone.
TEST_F(Lying, ThePasswordGoesOutInTlsAndOnTheLocalSocketOnly) {
    const std::string publicKey = outputOf({"openssl", "pkey", "-in", serverKey(), "-pubout"});
    for (const std::string method : {"caching_sha2_password", "sha256_password"}) {
        for (const auto& [atOnce, tls, local] : {std::tuple(true, false, false),
                                                 {false, false, false},
                                                 {true, true, false},
                                                 {false, true, false},
                                                 {false, false, true}}) {
            const bool safe = tls || local;
            size_t gotBefore = 0;
            bool gotPassword = false;
            const auto extort = [&, atOnce = atOnce, tls = tls](Peer& peer) {
                peer.greet(atOnce ? method : "mysql_native_password", tls);
                if (tls) {
                    peer.receive();
                    peer.encrypt();
                }
                if (!atOnce) {
                    peer.receive();
                    peer.switchTo(method);
                }
                gotBefore = peer.received().size();
                for (std::string reply; !gotPassword && (reply = peer.receive()) != "";) {
                    gotPassword = reply.size() == 256 || reply.find(password) != std::string::npos;
                    const bool forKey = method == "sha256_password" || reply == "\2";
                    if (!gotPassword) peer.send(forKey ? "\1" + publicKey : "\1\4");
                }
                peer.sendOk();
            };
            LyingServer liar(extort, local);
            database.Host = local ? LyingServer::socketPath() : LyingServer::host;
            EXPECT_EQ(database.Connect(), safe) << database.ErrorMessage;
            EXPECT_EQ(liar.received().size() > gotBefore, safe) << method;
            EXPECT_EQ(gotPassword, safe) << method;
            EXPECT_EQ(database.ErrorMessage.starts_with("The password was not sent: "), !safe);
        }
    }
}

TEST_F(Lying, NoServerGetsALocalFile) {
    TempFolder folder;
    const std::string file = folder.write("secret", "the file's content");
    LyingServer server([&](Peer& peer) {
        peer.admitAndAwaitStatement();
        peer.send("\xfb" + file);
        peer.receive();
        peer.sendOk();
    });
    ASSERT_TRUE(database.Connect());
    EXPECT_EQ(database.SQLSelect("load data local infile '" + file + "' into table t"), nullptr);
    EXPECT_TRUE(database.Error);
    EXPECT_EQ(server.received().find("content"), std::string::npos);
}

// The rows up to the lie are read; then comes the exception, never an end.
TEST_F(Lying, RowsThatBreakOffRaise) {
    for (const Script& script :
         {Script([](Peer& peer) { peer.sendRaw("\x64\0\0\x06\x0ahalf a row"s); }),
          Script([](Peer& peer) { peer.send("\3one\xfetoolong!"s); }),
          Script([](Peer& peer) { peer.send("\3one"); }),
          Script([](Peer& peer) { peer.sendError(1317, nastyText); })}) {
        LyingServer server([&](Peer& peer) {
            peer.admitAndAwaitStatement();
            peer.sendColumns(2);
            peer.send("\3one\3two");
            script(peer);
        });
        ASSERT_TRUE(database.Connect());
        const auto cursor = database.SQLSelect("select * from t");
        EXPECT_EQ(cursor->fieldText(2), "two");
        cursor->MoveNext();
        EXPECT_THROW(cursor->EOF_(), DatabaseException);
        expectFailure();
    }
    EXPECT_EQ(database.ErrorMessage, nastyText) << "the last one's";
}

}  // namespace
}  // namespace bracken::test
