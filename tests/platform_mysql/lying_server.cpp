#include "tests/platform_mysql/lying_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "tests/platform_mysql/mysql_test.h"

namespace bracken::test {

namespace {

std::string number(size_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; i++) text += static_cast<char>(value >> (8 * i) & 0xff);
    return text;
}

std::string counted(std::string_view text) {
    return number(text.size(), 1) + std::string(text);
}

int listenOn(bool local) {
    sockaddr_in port{AF_INET, htons(static_cast<uint16_t>(server().port())), {}, {}};
    inet_pton(AF_INET, LyingServer::host, &port.sin_addr);
    sockaddr_un path{AF_UNIX, {}};
    LyingServer::socketPath().copy(path.sun_path, sizeof path.sun_path - 1);
    unlink(path.sun_path);
    const int listener = socket(local ? AF_UNIX : AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int yes = 1;
    setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    const void* address = local ? static_cast<const void*>(&path) : &port;
    if (bind(listener, static_cast<const sockaddr*>(address), local ? sizeof path : sizeof port) ||
        listen(listener, 1) != 0)
        throw std::system_error(errno, std::generic_category());
    return listener;
}

}  // namespace

void Peer::sendRaw(std::string_view bytes) {
    // A client that has gone is seen by receive.
    if (tls_) {
        SSL_write(tls_.get(), bytes.data(), static_cast<int>(bytes.size()));
        return;
    }
    (void)::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

void Peer::send(std::string_view payload) {
    std::string packet = number(payload.size(), 3);
    packet += static_cast<char>(number_++);
    packet += payload;
    sendRaw(packet);
}

std::string Peer::receive() {
    std::string header;
    std::string payload;
    if (!receiveExactly(4, header)) return "";
    auto byte = [&](int i) { return static_cast<unsigned char>(header[static_cast<size_t>(i)]); };
    number_ = static_cast<unsigned char>(byte(3) + 1);
    receiveExactly(byte(0) | static_cast<size_t>(byte(1)) << 8 | static_cast<size_t>(byte(2)) << 16,
                   payload);
    return payload;
}

void Peer::awaitEnd() {
    std::string byte;
    while (receiveExactly(1, byte)) byte.clear();
}

bool Peer::receiveExactly(size_t count, std::string& bytes) {
    char buffer[4096];
    while (bytes.size() < count) {
        size_t wanted = std::min(sizeof buffer, count - bytes.size());
        ssize_t got = tls_ ? SSL_read(tls_.get(), buffer, static_cast<int>(wanted))
                           : recv(socket_, buffer, wanted, 0);
        if (got <= 0) return false;
        bytes.append(buffer, static_cast<size_t>(got));
        received_.append(buffer, static_cast<size_t>(got));
    }
    return true;
}

void Peer::greet(std::string_view plugin, bool offersTls) {
    using namespace std::string_literals;
    // Protocol 4.1, proof by plug-in, local files.
    const size_t abilities = 0x8a3ff | (offersTls ? 0x800 : 0);
    send(
        "\x0a"
        "8.0.0\0"s +
        number(1, 4) + "saltsalt\0"s + number(abilities & 0xffff, 2) + "\x2d" + number(2, 2) +
        number(abilities >> 16, 2) + "\x15" + std::string(10, '\0') + "saltsaltsalt\0"s +
        std::string(plugin) + "\0"s);
}

void Peer::switchTo(std::string_view plugin) {
    using namespace std::string_literals;
    send("\xfe" + std::string(plugin) + "\0saltsaltsaltsaltsalt\0"s);
}

void Peer::encrypt() {
    SSL_CTX* context = SSL_CTX_new(TLS_server_method());
    SSL_CTX_use_PrivateKey_file(context, serverKey().c_str(), SSL_FILETYPE_PEM);
    SSL_CTX_use_certificate_file(context, serverKey().c_str(), SSL_FILETYPE_PEM);
    tls_.reset(SSL_new(context));
    SSL_CTX_free(context);
    SSL_set_fd(tls_.get(), socket_);
    SSL_accept(tls_.get());
}

void Peer::sendOk() {
    send(std::string_view("\0\0\0\2\0\0\0", 7));
}

void Peer::sendError(int error, std::string_view text) {
    send("\xff" + number(static_cast<size_t>(error), 2) + "#HY000" + std::string(text));
}

void Peer::sendColumns(int count) {
    send(number(static_cast<size_t>(count), 1));
    for (int i = 0; i < count; i++) {
        std::string name(1, static_cast<char>('a' + i));
        send(counted("def") + counted("") + counted("t") + counted("t") + counted(name) +
             counted(name) + "\x0c" + number(0x2d, 2) + number(255, 4) + "\xfd" + number(0, 5));
    }
    sendEnd();
}

void Peer::sendEnd() {
    send(std::string_view("\xfe\0\0\2\0", 5));
}

void Peer::admitAndAwaitStatement() {
    greet();
    receive();
    sendOk();
    receive();
}

std::string LyingServer::socketPath() {
    return server().folder() + "/liar";
}

LyingServer::LyingServer(std::function<void(Peer&)> script, const std::string& name)
    : listener_(listenOn(name != host)),
      thread_([this, script = std::move(script)] { serve(script); }) {}

LyingServer::~LyingServer() {
    received();
    close(listener_);
}

std::string LyingServer::received() {
    if (thread_.joinable()) thread_.join();
    return received_;
}

void LyingServer::serve(const std::function<void(Peer&)>& script) {
    int connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    Peer peer(connection);
    script(peer);
    received_ = peer.received();
    close(connection);
}

}  // namespace bracken::test
