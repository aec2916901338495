#include "platform/mysql/server_address.h"

#include <sys/un.h>

#include <algorithm>
#include <charconv>
#include <string_view>

namespace bracken {

namespace {

constexpr size_t maxPathBytes = sizeof(sockaddr_un::sun_path) - 1;
constexpr unsigned maxPort = 65535;

std::string_view withoutBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    size_t start = std::min(text.find_first_not_of(blanks), text.size());
    return text.substr(start, text.find_last_not_of(blanks) + 1 - start);
}

std::string refusal(std::string_view host, const std::string& why) {
    return "\"" + std::string(host) + "\" is not a host name: " + why + ".";
}

std::optional<std::string> forbiddenPart(std::string_view host) {
    for (const char* forbidden : {";", "=", ",", "://"}) {
        if (host.find(forbidden) != std::string_view::npos)
            return std::string("it contains \"") + forbidden + "\"";
    }
    return std::nullopt;
}

// 0 if the text is no port.
unsigned portOf(std::string_view text) {
    unsigned port = 0;
    const char* end = text.data() + text.size();
    auto [stop, error] = std::from_chars(text.data(), end, port);
    return error == std::errc() && stop == end && port <= maxPort ? port : 0;
}

// The part that names the host and, with its colon, the part that names a port.
struct Parts {
    std::string_view name;
    std::string_view port;
};

// More colons than one are an IPv6 address, unless brackets separate it from a port.
Parts partsOf(std::string_view host) {
    size_t colon = host.find(':');
    if (host.starts_with('[')) {
        size_t bracket = host.find(']');
        if (bracket == std::string_view::npos) return {};
        return {host.substr(1, bracket - 1), host.substr(bracket + 1)};
    }
    if (colon == std::string_view::npos || host.find(':', colon + 1) != std::string_view::npos)
        return {host, {}};
    return {host.substr(0, colon), host.substr(colon)};
}

std::optional<std::string> readNameAndPort(std::string_view text, ServerAddress& address) {
    const Parts parts = partsOf(text);
    if (parts.name.empty()) return refusal(text, "there is no name, or no end to the brackets");
    unsigned port = 0;
    if (!parts.port.empty()) {
        port = parts.port.starts_with(':') ? portOf(parts.port.substr(1)) : 0;
        if (port == 0) return refusal(text, "the port must be a number from 1 to 65535");
    }
    address = {std::string(parts.name), port, ""};
    return std::nullopt;
}

std::optional<std::string> readPath(std::string_view text, ServerAddress& address) {
    if (text.size() > maxPathBytes) {
        return refusal(
            text, "the path of a socket has at most " + std::to_string(maxPathBytes) + " bytes");
    }
    address = {"", 0, std::string(text)};
    return std::nullopt;
}

}  // namespace

std::optional<std::string> readAddress(const std::string& host, ServerAddress& address) {
    std::string_view text = withoutBlanks(host);
    if (text.starts_with('/')) return readPath(text, address);
    if (auto why = forbiddenPart(text)) return refusal(text, *why);
    return readNameAndPort(text, address);
}

}  // namespace bracken
