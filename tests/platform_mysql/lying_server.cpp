#include "tests/platform_mysql/lying_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
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

int listenOn(const char* host, int port) {
    int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    int yes = 1;
    setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(port));
    inet_pton(AF_INET, host, &address.sin_addr);
    if (bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener, 1) != 0) {
        throw std::system_error(errno, std::generic_category(), host);
    }
    return listener;
}

}  // namespace

void Peer::sendRaw(std::string_view bytes) {
    // A client that has gone is seen by receive.
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
        ssize_t got = recv(socket_, buffer, std::min(sizeof buffer, count - bytes.size()), 0);
        if (got <= 0) return false;
        bytes.append(buffer, static_cast<size_t>(got));
        received_.append(buffer, static_cast<size_t>(got));
    }
    return true;
}

void Peer::greet(std::string_view plugin) {
    using namespace std::string_literals;
    // Protocol 4.1, proof by plug-in, local files; no encryption.
    constexpr size_t abilities = 0x8a3ff & ~size_t{0x800};
    send(
        "\x0a"
        "8.0.0\0"s +
        number(1, 4) + "saltsalt\0"s + number(abilities & 0xffff, 2) + "\x2d" + number(2, 2) +
        number(abilities >> 16, 2) + "\x15" + std::string(10, '\0') + "saltsaltsalt\0"s +
        std::string(plugin) + "\0"s);
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

LyingServer::LyingServer(std::function<void(Peer&)> script)
    : listener_(listenOn(host, server().port())) {
    thread_ = std::thread([this, script = std::move(script)] { serve(script); });
}

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
