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
    // Taking leave may wait for the server's own leave, but never for a server that hangs.
    shutdown(socket_, SHUT_RD);
    mysql_close(handle_);
    close(socket_);
}

Connection::Answer Connection::run(const std::string& statement, bool whole) {
    awaitRows();
    if (mysql_real_query(handle_, statement.data(), statement.size()) != 0) return failure();
    MYSQL_RES* result = mysql_use_result(handle_);
    if (result == nullptr) return mysql_errno(handle_) != 0 ? failure() : Answer{};
    rows_ = std::make_shared<RowStream>(handle_, result);
    if (whole) {
        rows_->keepAll();
        if (auto error = rows_->error()) return {error, nullptr};
    }
    return {std::nullopt, rows_};
}

void Connection::select(const std::string& name) {
    awaitRows();
    mysql_select_db(handle_, name.c_str());
}

// Whoever holds the rows goes on reading them from memory.
void Connection::awaitRows() {
    if (rows_ != nullptr) rows_->keepAll();
    rows_ = nullptr;
}

Connection::Answer Connection::failure() const {
    return {mysql_error(handle_), nullptr};
}

// What the library's own call for this does, but safe while another thread is inside the library.
void Connection::interrupt() const {
    shutdown(socket_, SHUT_RDWR);
}

}  // namespace bracken
