#include "tools/bracken-scan/server.h"

#include <cstdlib>

#include "framework/platform/null_platform.h"
#include "framework/text/text.h"
#include "framework/threads/baton.h"
#include "platform/mysql/mysql_database.h"
#include "tools/bracken-scan/failure.h"
#include "tools/bracken-scan/password.h"

namespace bracken::cli {

namespace {

// The client library reads port and socket from its environment as it is prepared.
void prepare(const Options& options) {
    if (options.socket) setenv("MYSQL_UNIX_PORT", options.socket->c_str(), 1);
    if (options.port) setenv("MYSQL_TCP_PORT", options.port->c_str(), 1);
    MySQLDatabase::prepareLibrary();
}

void connect(MySQLDatabase& server, const Options& options) {
    // By its name the library goes to the socket, whatever the port.
    const bool local = options.host.empty() || equal(options.host, "localhost");
    server.Host = local && options.port ? "127.0.0.1" : options.host;
    server.UserName = options.user;
    server.Password = password(options);
    if (!server.Connect()) throw Failure(server.ErrorMessage);
}

std::vector<std::string> list(MySQLDatabase& server, const std::string& database) {
    const auto cursor =
        server.SQLSelect("show tables in `" + ReplaceAll(database, "`", "``") + "`");
    if (cursor == nullptr && server.Error) throw Failure(server.ErrorMessage);
    std::vector<std::string> names;
    for (; !cursor->EOF_(); cursor->MoveNext()) names.emplace_back(cursor->fieldText(1));
    return names;
}

}  // namespace

std::vector<std::string> namesOfServer(const Options& options) {
    prepare(options);
    const NullPlatform platform;
    const baton::Hold hold;
    MySQLDatabase server;
    connect(server, options);
    try {
        return list(server, *options.database);
    } catch (const Exception& error) {
        throw Failure(error.what());
    }
}

}  // namespace bracken::cli
