#pragma once

#include <arpa/inet.h>
#include <openssl/ssl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <functional>
#include <memory>
#include <string>
#include <system_error>
#include <thread>

#include "tests/platform_mysql/mysql_test.h"

namespace bracken::test {

// The server's end of one connection, speaking as much of the protocol as a lie needs. Packets are
// numbered on from the last one that came or went.
class Peer {
  public:
    explicit Peer(int socket) : socket_(socket) {}

    // A client that has gone is seen by receive.
    void sendRaw(const std::string& bytes) {
        if (tls_)
            SSL_write(tls_.get(), bytes.data(), static_cast<int>(bytes.size()));
        else
            (void)::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    }
    void send(const std::string& payload) {
        sendRaw(number(payload.size(), 3) + static_cast<char>(number_++) + payload);
    }
    // The next packet's payload, empty once the client has gone.
    std::string receive() {
        const std::string header = take(4);
        if (header.empty()) return "";
        const auto byte = [&](size_t at) { return size_t{static_cast<uint8_t>(header[at])}; };
        number_ = static_cast<uint8_t>(byte(3) + 1);
        return take(byte(0) | byte(1) << 8 | byte(2) << 16);
    }
    // Waits until the client has gone.
    void awaitEnd() {
        while (!take(1).empty()) continue;
    }

    // Greets as an ordinary server that proposes this way of proving the password.
    void greet(const std::string& plugin = "mysql_native_password", bool offersTls = false) {
        // Protocol 4.1, proof by plug-in, local files.
        const size_t abilities = 0x8a3ff | (offersTls ? 0x800 : 0);
        send("\x0a" + text("8.0.0") + number(1, 4) + text("saltsalt") +
             number(abilities & 0xffff, 2) + "\x2d" + number(2, 2) + number(abilities >> 16, 2) +
             "\x15" + std::string(10, '\0') + text("saltsaltsalt") + text(plugin));
    }
    // Has the client prove the password in another way.
    void switchTo(const std::string& plugin) {
        send("\xfe" + text(plugin) + text("saltsaltsaltsaltsalt"));
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
    void sendOk() { send(std::string("\0\0\0\2\0\0\0", 7)); }
    void sendError(size_t error, const std::string& words) {
        send("\xff" + number(error, 2) + "#HY000" + words);
    }
    // The start of a result: columns of text.
    void sendColumns(size_t count) {
        send(number(count, 1));
        for (size_t i = 0; i < count; i++)
            send("\3def" + std::string(3, '\0') + "\1a" + number(0, 1) + "\x0c" + number(0x2d, 2) +
                 number(255, 4) + "\xfd" + number(0, 5));
        send(std::string("\xfe\0\0\2\0", 5));
    }
    // Lets the client in, whoever it is, and takes its first statement.
    void admitAndAwaitStatement() {
        greet();
        receive();
        sendOk();
        receive();
    }

    // All that has come so far, as it came, or as it came out of TLS.
    const std::string& received() const { return received_; }

  private:
    static std::string number(size_t value, int bytes) {
        std::string made;
        for (int i = 0; i < bytes; i++) made += static_cast<char>(value >> (8 * i) & 0xff);
        return made;
    }
    static std::string text(const std::string& words) { return words + '\0'; }
    // So many bytes, or none once the client has gone.
    std::string take(size_t count) {
        std::string bytes(count, '\0');
        for (size_t got = 0; got < count;) {
            char* to = bytes.data() + got;
            const ssize_t more = tls_ ? SSL_read(tls_.get(), to, static_cast<int>(count - got))
                                      : recv(socket_, to, count - got, 0);
            if (more <= 0) return "";
            received_.append(to, static_cast<size_t>(more));
            got += static_cast<size_t>(more);
        }
        return bytes;
    }

    int socket_;
    std::unique_ptr<SSL, void (*)(SSL*)> tls_{nullptr, SSL_free};
    uint8_t number_ = 0;
    std::string received_;
};

// A server that plays one connection by a script and then closes it. It listens on an address of
// its own, since the client library knows but one port, or on a local socket.
class LyingServer {
  public:
    static constexpr const char* host = "127.0.0.2";
    static std::string socketPath() { return server().folder() + "/liar"; }

    explicit LyingServer(const std::function<void(Peer&)>& script, bool local = false) {
        listen(local);
        thread_ = std::thread([this, script] {
            const int connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
            Peer peer(connection);
            script(peer);
            received_ = peer.received();
            close(connection);
        });
    }
    ~LyingServer() {
        received();
        close(listener_);
    }
    // Waits for the script's end; what the client had sent by then.
    std::string received() {
        if (thread_.joinable()) thread_.join();
        return received_;
    }

  private:
    void listen(bool local) {
        const auto portNumber = static_cast<uint16_t>(server().port());
        const sockaddr_in port{AF_INET, htons(portNumber), {inet_addr(host)}, {}};
        sockaddr_un path{AF_UNIX, {}};
        socketPath().copy(path.sun_path, sizeof path.sun_path - 1);
        unlink(path.sun_path);
        listener_ = socket(local ? AF_UNIX : AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const int yes = 1;
        setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
        const void* address = local ? static_cast<const void*>(&path) : &port;
        if (bind(listener_, static_cast<const sockaddr*>(address),
                 local ? sizeof path : sizeof port) != 0 ||
            ::listen(listener_, 1) != 0)
            throw std::system_error(errno, std::generic_category());
    }

    int listener_ = -1;
    std::string received_;
    std::thread thread_;
};

}  // namespace bracken::test
