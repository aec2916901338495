#include "platform/mysql/mysql_database.h"

#include "framework/text/text.h"
#include "framework/threads/without_baton.h"
#include "platform/mysql/connect_attempt.h"
#include "platform/mysql/mysql_cursor.h"
#include "platform/mysql/sha2_guard.h"

namespace bracken {

namespace {

// Their results are short, and their readers run other statements in between.
bool waitsForAllRows(const std::string& statement) {
    return equal(Left(statement, 5), "show ") || equal(Left(statement, 9), "describe ");
}

}  // namespace

void MySQLDatabase::prepareLibrary() {
    mysql_library_init(0, nullptr, nullptr);
    guardSha2Methods();
}

MySQLDatabase::MySQLDatabase(std::chrono::milliseconds connectTimeout)
    : connectTimeout_(connectTimeout) {}

MySQLDatabase::~MySQLDatabase() = default;

void MySQLDatabase::DatabaseName(const std::string& name) {
    if (connection_ == nullptr) return;
    blocking([&] { connection_->select(name); }, [&] { connection_->interrupt(); });
}

bool MySQLDatabase::Connect() {
    ServerAddress address;
    if (auto refusal = readAddress(Host, address)) {
        setOutcome(refusal);
        return false;
    }
    auto attempt = std::make_shared<ConnectAttempt>(address, UserName, Password, connectTimeout_);
    std::shared_ptr<Connection> connection;
    blocking([&] { connection = attempt->run(); }, [&] { attempt->abandon(); });
    if (connection == nullptr) {
        setOutcome(attempt->error());
        return false;
    }
    connection_ = std::move(connection);
    setOutcome(std::nullopt);
    return true;
}

Ref<DatabaseCursor> MySQLDatabase::SQLSelect(const std::string& statement) {
    Connection::Answer answer{"There is no connection to a server.", nullptr};
    if (connection_ != nullptr) {
        blocking([&] { answer = connection_->run(statement, waitsForAllRows(statement)); },
                 [&] { connection_->interrupt(); });
    }
    setOutcome(answer.error);
    if (answer.rows == nullptr) return nilCursor(answer.error, statement);
    return make<MySQLCursor>(*this, connection_, answer.rows);
}

void MySQLDatabase::SQLExecute(const std::string& statement) {
    if (auto unexpectedRows = SQLSelect(statement)) unexpectedRows->Close();
}

void MySQLDatabase::setOutcome(const std::optional<std::string>& error) {
    Error = error.has_value();
    ErrorMessage = error.value_or("");
}

}  // namespace bracken
