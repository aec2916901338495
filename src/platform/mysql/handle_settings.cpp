#include "platform/mysql/handle_settings.h"

#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace bracken {

namespace {

// None of them sends the password in clear over a connection that is not encrypted, the sha2 ones
// by our own guard.
constexpr const char* allowedPlugins =
    "mysql_native_password,caching_sha2_password,sha256_password,client_ed25519";

// Seconds: silence before the first probe, between probes, and their number. Together as long as
// data may stay unacknowledged.
constexpr int idleSeconds = 30;
constexpr int probeSeconds = 10;
constexpr int probes = 3;
constexpr int deadPeerMilliseconds = 60'000;

void set(int socket, int level, int option, int value) {
    setsockopt(socket, level, option, &value, sizeof value);
}

// On a local socket the calls fail, and are not needed.
void watchPeer(int socket) {
    set(socket, SOL_SOCKET, SO_KEEPALIVE, 1);
    set(socket, IPPROTO_TCP, TCP_KEEPIDLE, idleSeconds);
    set(socket, IPPROTO_TCP, TCP_KEEPINTVL, probeSeconds);
    set(socket, IPPROTO_TCP, TCP_KEEPCNT, probes);
    set(socket, IPPROTO_TCP, TCP_USER_TIMEOUT, deadPeerMilliseconds);
}

}  // namespace

std::optional<std::string> refusalOfHost(const std::string& host) {
    for (const char* forbidden : {";", "=", ",", "://"}) {
        if (host.find(forbidden) == std::string::npos) continue;
        return "\"" + host + "\" is not a host name: it contains \"" + forbidden + "\".";
    }
    return std::nullopt;
}

void configure(MYSQL* handle, std::chrono::milliseconds timeout) {
    auto seconds = static_cast<unsigned>(std::chrono::ceil<std::chrono::seconds>(timeout).count());
    mysql_options(handle, MYSQL_OPT_CONNECT_TIMEOUT, &seconds);
    unsigned noLocalFiles = 0;
    mysql_options(handle, MYSQL_OPT_LOCAL_INFILE, &noLocalFiles);
    my_bool no = 0;
    mysql_options(handle, MYSQL_OPT_RECONNECT, &no);
    mysql_options(handle, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    mysql_options(handle, MARIADB_OPT_RESTRICTED_AUTH, allowedPlugins);
    // Encrypts if the server can. Whom it talks to stays unknown: there is no place to say whom to
    // trust.
    mysql_ssl_set(handle, nullptr, nullptr, nullptr, nullptr, nullptr);
    mysql_options(handle, MYSQL_OPT_SSL_VERIFY_SERVER_CERT, &no);
}

void settle(MYSQL* handle) {
    int socket = mysql_get_socket(handle);
    fcntl(socket, F_SETFD, FD_CLOEXEC);
    watchPeer(socket);
}

}  // namespace bracken
