#pragma once

#include <optional>
#include <string>

namespace bracken {

// Where a server listens, as the client library wants it.
struct ServerAddress {
    // A name, an IPv4 or an IPv6 address; empty if there is a socket.
    std::string name;
    // 0 if none was named: then the library's default counts. With a port the way is TCP, under the
    // name "localhost" too.
    unsigned port = 0;
    // The absolute path of a local socket, or empty.
    std::string socket;
};

// Reads what a user typed as the host, blanks around it dropped: `/path/of/a/socket`, `name`,
// `name:port`, `IPv6`, `[IPv6]` or `[IPv6]:port`. The result is why it is none of them, and nothing
// if `address` has been set. The library would read certain characters as connection options, a
// list of hosts, or a plug-in to load; they are refused outside a path.
std::optional<std::string> readAddress(const std::string& host, ServerAddress& address);

}  // namespace bracken
