#include <arpa/inet.h>
#include <openssl/ssl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <functional>
#include <semaphore>
#include <thread>

#include "framework/threads/thread.h"
#include "tests/platform_mysql/mysql_test.h"

namespace bracken::test {

std::string number(size_t value, int bytes) {
    std::string made;
    for (int i = 0; i < bytes; i++) made += static_cast<char>(value >> (8 * i) & 0xff);
    return made;
}

std::string text(const std::string& words) {
    return words + '\0';
}

// The server's end of one connection, speaking as much of the protocol as a lie needs. Packets are
// numbered on from the last one that came or went.
class Peer {
  public:
    explicit Peer(int socket) : socket_(socket) {}

    // A client that has gone is seen by receive.
    void send(const std::string& payload) {
        const std::string packet =
            number(payload.size(), 3) + static_cast<char>(number_++) + payload;
        if (tls_)
            SSL_write(tls_.get(), packet.data(), static_cast<int>(packet.size()));
        else
            (void)::send(socket_, packet.data(), packet.size(), MSG_NOSIGNAL);
    }
    // The next packet's payload, empty once the client has gone.
    std::string receive() {
        const std::string header = take(4);
        if (header.empty()) return "";
        const auto byte = [&](size_t at) { return size_t{static_cast<uint8_t>(header[at])}; };
        number_ = static_cast<uint8_t>(byte(3) + 1);
        return take(byte(0) | byte(1) << 8 | byte(2) << 16);
    }
    // Greets as an ordinary server that proposes this way of proving the password.
    void greet(const std::string& method, bool offersTls) {
        // Protocol 4.1, proof by plug-in.
        const size_t abilities = 0x8a37f | (offersTls ? 0x800 : 0);
        send("\x0a" + text("8.0.0") + number(1, 4) + text("saltsalt") +
             number(abilities & 0xffff, 2) + "\x2d" + number(2, 2) + number(abilities >> 16, 2) +
             "\x15" + std::string(10, '\0') + text("saltsaltsalt") + text(method));
    }
    // Takes the server's part in TLS; what comes and goes from now on is inside.
    void encrypt() {
        SSL_CTX* context = SSL_CTX_new(TLS_server_method());
        SSL_CTX_use_PrivateKey_file(context, serverKey().c_str(), SSL_FILETYPE_PEM);
        SSL_CTX_use_certificate_file(context, serverKey().c_str(), SSL_FILETYPE_PEM);
        tls_.reset(SSL_new(context));
        SSL_CTX_free(context);
        SSL_set_fd(tls_.get(), socket_);
        SSL_accept(tls_.get());
    }

  private:
    // So many bytes, or none once the client has gone. A packet comes in one piece of TLS.
    std::string take(size_t count) {
        std::string bytes(count, '\0');
        const ssize_t got = tls_ ? SSL_read(tls_.get(), bytes.data(), static_cast<int>(count))
                                 : recv(socket_, bytes.data(), count, MSG_WAITALL);
        return got == static_cast<ssize_t>(count) ? bytes : "";
    }

    int socket_;
    std::unique_ptr<SSL, void (*)(SSL*)> tls_{nullptr, SSL_free};
    uint8_t number_ = 0;
};

// A server that plays one connection by a script and then closes it; its scope ends with the
// script. It listens on an address of its own, or on a local socket.
class LyingServer {
  public:
    static constexpr const char* host = "127.0.0.2";
    static std::string socketPath() { return server().folder() + "/liar"; }

    explicit LyingServer(const std::function<void(Peer&)>& script, bool local = false)
        : listener_(socket(local ? AF_UNIX : AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        const auto portNumber = static_cast<uint16_t>(server().port());
        const sockaddr_in port{AF_INET, htons(portNumber), {inet_addr(host)}, {}};
        sockaddr_un path{AF_UNIX, {}};
        socketPath().copy(path.sun_path, sizeof path.sun_path - 1);
        unlink(path.sun_path);
        const int yes = 1;
        setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
        const void* address = local ? static_cast<const void*>(&path) : &port;
        EXPECT_EQ(bind(listener_, static_cast<const sockaddr*>(address),
                       local ? sizeof path : sizeof port),
                  0);
        EXPECT_EQ(listen(listener_, 1), 0);
        thread_ = std::thread([this, script] {
            const int connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
            Peer peer(connection);
            script(peer);
            close(connection);
        });
    }
    ~LyingServer() {
        thread_.join();
        close(listener_);
    }

  private:
    int listener_;
    std::thread thread_;
};

using Lying = MySQLTest;

TEST_F(Lying, AFullServersWordsStandAlone) {
    // Markup, control bytes, bytes that are no text.
    const std::string words = "<b>&amp;</b> \x01\x1b[31m\n\t\x7f \xff\xfe \" ' `%s%n";
    LyingServer full([&](Peer& peer) { peer.send("\xff\x10\x04#HY000" + words); });
    database.Host = LyingServer::host;
    EXPECT_FALSE(database.Connect());
    EXPECT_EQ(database.ErrorMessage, words);
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

// A server asks for the password by one of the methods that end in the password itself, naming it
// at once or by a switch. It goes out, to be judged by the server, in TLS and on the local socket
// only, and by the sha2 methods only.
TEST_F(Lying, NoServerGetsThePasswordInClear) {
    enum Tls { none, onlyOffered, real };
    for (const std::string method :
         {"caching_sha2_password", "sha256_password", "mysql_clear_password"}) {
        const bool allowed = method.find("sha2") != std::string::npos;
        for (const auto& [atOnce, tls, local] : {std::tuple(true, none, false),
                                                 {false, none, false},
                                                 {false, onlyOffered, false},
                                                 {true, real, false},
                                                 {false, real, false},
                                                 {false, none, true}}) {
            bool answered = false;
            const auto extort = [&, atOnce = atOnce, tls = tls](Peer& peer) {
                peer.greet(atOnce ? method : "mysql_native_password", tls != none);
                if (tls != none) peer.receive();
                if (tls == real) peer.encrypt();
                if (!atOnce) {
                    if (tls != onlyOffered) peer.receive();
                    peer.send("\xfe" + text(method) + text("saltsaltsaltsaltsalt"));
                }
                answered = !peer.receive().empty();
            };
            database.Host = local ? LyingServer::socketPath() : LyingServer::host;
            database.Password = "s3cret-p4ssword";
            {
                LyingServer liar(extort, local);
                EXPECT_FALSE(database.Connect());
            }
            EXPECT_EQ(answered, allowed && (tls == real || local)) << method;
            EXPECT_EQ(database.ErrorMessage.starts_with("The password was not sent: "),
                      allowed && tls == none && !local)
                << database.ErrorMessage;
        }
    }
}

}  // namespace bracken::test
