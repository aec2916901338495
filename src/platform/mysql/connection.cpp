#include "platform/mysql/connection.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace bracken {

Connection::Connection(MYSQL* handle)
    : handle_(handle), socket_(fcntl(mysql_get_socket(handle), F_DUPFD_CLOEXEC, 0)) {}

Connection::~Connection() {
    if (rows_ != nullptr && !rows_->ended()) interrupt();
    rows_ = nullptr;
    // Closing encryption may wait for the server's part, which must not be a wait for a server that
    // hangs.
    shutdown(socket_, SHUT_RD);
    mysql_close(handle_);
    close(socket_);
}

Connection::Answer Connection::run(const std::string& statement, bool waitForAll) {
    finishRows();
    if (mysql_real_query(handle_, statement.data(), statement.size()) != 0) return failure();
    MYSQL_RES* result = mysql_use_result(handle_);
    if (result == nullptr) return mysql_errno(handle_) != 0 ? failure() : Answer{};
    rows_ = std::make_shared<RowStream>(handle_, result);
    if (waitForAll) {
        rows_->keepAll();
        if (auto error = rows_->error()) return {error, nullptr};
    }
    return {std::nullopt, rows_};
}

void Connection::select(const std::string& name) {
    finishRows();
    mysql_select_db(handle_, name.c_str());
}

// A cursor that holds the rows continues to read them, from memory.
void Connection::finishRows() {
    if (rows_ != nullptr) rows_->keepAll();
    rows_ = nullptr;
}

Connection::Answer Connection::failure() const {
    return {mysql_error(handle_), nullptr};
}

// The same as the library's own call for this, but safe while another thread is in the library.
void Connection::interrupt() const {
    shutdown(socket_, SHUT_RDWR);
}

}  // namespace bracken
