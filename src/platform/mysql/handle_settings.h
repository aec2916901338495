#pragma once

#include <mysql.h>

#include <chrono>
#include <optional>
#include <string>

namespace bracken {

// Why the client library must not be given this host, nothing for an ordinary one: it reads certain
// characters as connection options, a list of hosts, or a plug-in to load.
std::optional<std::string> refusalOfHost(const std::string& host);

// What holds for every connection: settings of a handle before it connects. Reaching the server
// takes at most `timeout`, rounded up to whole seconds. What comes then has no limit here: the
// library's limit on reading can't be lifted again, and counts in milliseconds once the connection
// is encrypted.
void configure(MYSQL* handle, std::chrono::milliseconds timeout);
// Settings of a handle that has connected: a peer that has died is noticed after a minute.
void settle(MYSQL* handle);

}  // namespace bracken
