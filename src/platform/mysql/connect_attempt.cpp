#include "platform/mysql/connect_attempt.h"

#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <string_view>
#include <thread>

namespace bracken {

namespace {

// None of them sends the password in clear over an unencrypted connection; for the sha2 methods
// sha2_guard.h sees to that.
constexpr const char* allowedPlugins =
    "mysql_native_password,caching_sha2_password,sha256_password,client_ed25519";

// Silence before the first probe, time between probes, and their number: in sum the time that data
// may stay unacknowledged.
constexpr int idleSeconds = 30;
constexpr int probeSeconds = 10;
constexpr int probeCount = 3;
constexpr int deadPeerMilliseconds = 60'000;

void setOption(int socket, int level, int option, int value) {
    setsockopt(socket, level, option, &value, sizeof value);
}

// Settings of a handle before it connects. Reaching the server takes at most `timeout`, rounded up
// to whole seconds. What comes after that has no limit here: the library's read timeout can't be
// lifted again, and counts in milliseconds once the connection is encrypted.
void configure(MYSQL* handle, std::chrono::milliseconds timeout) {
    auto seconds = static_cast<unsigned>(std::chrono::ceil<std::chrono::seconds>(timeout).count());
    mysql_options(handle, MYSQL_OPT_CONNECT_TIMEOUT, &seconds);
    unsigned noLocalFiles = 0;
    mysql_options(handle, MYSQL_OPT_LOCAL_INFILE, &noLocalFiles);
    my_bool no = 0;
    mysql_options(handle, MYSQL_OPT_RECONNECT, &no);
    mysql_options(handle, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    mysql_options(handle, MARIADB_OPT_RESTRICTED_AUTH, allowedPlugins);
    // Encrypts if the server can. The server's identity is not checked: the program has no setting
    // for which certificate to trust.
    mysql_ssl_set(handle, nullptr, nullptr, nullptr, nullptr, nullptr);
    mysql_options(handle, MYSQL_OPT_SSL_VERIFY_SERVER_CERT, &no);
}

// Settings of a connected handle's socket: a peer that has died is noticed after a minute.
void configureSocket(MYSQL* handle) {
    int socket = mysql_get_socket(handle);
    fcntl(socket, F_SETFD, FD_CLOEXEC);
    // On a local socket these calls fail, and are not needed.
    setOption(socket, SOL_SOCKET, SO_KEEPALIVE, 1);
    setOption(socket, IPPROTO_TCP, TCP_KEEPIDLE, idleSeconds);
    setOption(socket, IPPROTO_TCP, TCP_KEEPINTVL, probeSeconds);
    setOption(socket, IPPROTO_TCP, TCP_KEEPCNT, probeCount);
    setOption(socket, IPPROTO_TCP, TCP_USER_TIMEOUT, deadPeerMilliseconds);
}

std::string timedOut(const ServerAddress& server, std::chrono::milliseconds timeout) {
    return "Can't connect to server on '" + server.name + server.socket + "': no answer within " +
           std::to_string(std::chrono::ceil<std::chrono::seconds>(timeout).count()) + " s";
}

// By the name "localhost" the library goes to a socket, its own default one if none is given and in
// spite of a port.
bool reach(MYSQL* handle, const ServerAddress& server, const std::string& user,
           const std::string& password) {
    const bool bySocket = !server.socket.empty();
    unsigned tcp = MYSQL_PROTOCOL_TCP;
    if (server.port != 0) mysql_options(handle, MYSQL_OPT_PROTOCOL, &tcp);
    // An empty password is passed as such: for a null one the library would look elsewhere. The
    // database is chosen later.
    return mysql_real_connect(handle, bySocket ? "localhost" : server.name.c_str(), user.c_str(),
                              password.c_str(), nullptr, server.port,
                              bySocket ? server.socket.c_str() : nullptr, 0) != nullptr;
}

// A server that has too many connections or blocks this host reports it before encryption starts.
// The library then prepends a warning and the error's number; the server's own text is enough.
std::string withoutWarning(std::string text) {
    constexpr std::string_view warning =
        "Received error packet before completion of TLS handshake. The authenticity of the "
        "following error cannot be verified: ";
    constexpr std::string_view dash = " - ";
    size_t numberEnd = text.find(dash, warning.size());
    if (!text.starts_with(warning) || numberEnd == std::string::npos) return text;
    return text.substr(numberEnd + dash.size());
}

}  // namespace

ConnectAttempt::ConnectAttempt(ServerAddress server, std::string user, std::string password,
                               std::chrono::milliseconds timeout)
    : server_(std::move(server)),
      user_(std::move(user)),
      password_(std::move(password)),
      timeout_(timeout) {}

std::shared_ptr<Connection> ConnectAttempt::run() {
    std::thread thread([self = shared_from_this()] { self->connect(); });
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, timeout_, [this] { return done_ || abandoned_; });
    if (done_) {
        lock.unlock();
        thread.join();
        return std::move(connection_);
    }
    abandoned_ = true;
    error_ = timedOut(server_, timeout_);
    thread.detach();
    return nullptr;
}

void ConnectAttempt::abandon() {
    std::lock_guard lock(mutex_);
    abandoned_ = true;
    changed_.notify_all();
}

void ConnectAttempt::connect() {
    MYSQL* handle = mysql_init(nullptr);
    configure(handle, timeout_);
    if (reach(handle, server_, user_, password_)) {
        configureSocket(handle);
        finish(std::make_shared<Connection>(handle), "");
        return;
    }
    std::string error = withoutWarning(mysql_error(handle));
    mysql_close(handle);
    finish(nullptr, std::move(error));
}

void ConnectAttempt::finish(std::shared_ptr<Connection> connection, std::string error) {
    std::lock_guard lock(mutex_);
    if (abandoned_) return;
    connection_ = std::move(connection);
    error_ = std::move(error);
    done_ = true;
    changed_.notify_all();
}

}  // namespace bracken
