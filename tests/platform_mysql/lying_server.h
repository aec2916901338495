#pragma once

#include <openssl/ssl.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

namespace bracken::test {

// The server's end of one connection, speaking as much of the protocol as a lie needs. Packets are
// numbered on from the last one that came or went.
class Peer {
  public:
    explicit Peer(int socket) : socket_(socket) {}

    void sendRaw(std::string_view bytes);
    void send(std::string_view payload);
    // The next packet's payload, empty once the client has gone.
    std::string receive();
    // Waits until the client has gone.
    void awaitEnd();

    // Greets as an ordinary server that proposes this way of proving the password.
    void greet(std::string_view plugin = "mysql_native_password", bool offersTls = false);
    // Has the client prove the password in another way.
    void switchTo(std::string_view plugin);
    // Takes the server's part in TLS; what comes and goes from now on is inside.
    void encrypt();
    void sendOk();
    void sendError(int number, std::string_view text);
    // The start of a result: columns of text by the names a, b and so on.
    void sendColumns(int count);
    void sendEnd();
    // Lets the client in, whoever it is, and takes its first statement.
    void admitAndAwaitStatement();

    // All that has come so far, as it came, or as it came out of TLS.
    const std::string& received() const { return received_; }

  private:
    bool receiveExactly(size_t count, std::string& bytes);

    int socket_;
    std::unique_ptr<SSL, void (*)(SSL*)> tls_{nullptr, SSL_free};
    unsigned char number_ = 0;
    std::string received_;
};

// A server that plays one connection by a script and then closes it. It listens on an address of
// its own, since the client library knows but one port, or on a local socket.
class LyingServer {
  public:
    static constexpr const char* host = "127.0.0.2";
    static std::string socketPath();

    explicit LyingServer(std::function<void(Peer&)> script, const std::string& name = host);
    // Waits for the script's end.
    ~LyingServer();
    LyingServer(const LyingServer&) = delete;
    LyingServer& operator=(const LyingServer&) = delete;

    // Waits for the script's end; what the client had sent by then.
    std::string received();

  private:
    void serve(const std::function<void(Peer&)>& script);

    int listener_;
    std::string received_;
    std::thread thread_;
};

}  // namespace bracken::test
