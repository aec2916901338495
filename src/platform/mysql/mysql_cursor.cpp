#include "platform/mysql/mysql_cursor.h"

#include "framework/threads/without_baton.h"

namespace bracken {

MySQLCursor::MySQLCursor(Database& database, std::shared_ptr<Connection> connection,
                         std::shared_ptr<RowStream> rows)
    : database_(database), connection_(std::move(connection)), rows_(std::move(rows)) {}

MySQLCursor::~MySQLCursor() {
    Close();
}

bool MySQLCursor::EOF_() {
    if (row_ < block_.rowCount()) return false;
    return closed_ || !nextBlock();
}

void MySQLCursor::MoveNext() {
    if (!EOF_()) row_++;
}

std::string_view MySQLCursor::fieldName(int n) {
    return rows_->names()[checkedIndex(n)];
}

std::string_view MySQLCursor::fieldText(int n) {
    if (EOF_()) throw IndexOutOfRangeException("There is no row.");
    return block_.field(row_, checkedIndex(n));
}

void MySQLCursor::Close() {
    if (closed_) return;
    closed_ = true;
    rows_->discard();
    block_ = RowBlock();
    row_ = 0;
}

size_t MySQLCursor::checkedIndex(int n) const {
    if (n < 1 || static_cast<size_t>(n) > rows_->names().size()) {
        throw IndexOutOfRangeException("There is no field " + std::to_string(n) + ".");
    }
    return static_cast<size_t>(n) - 1;
}

bool MySQLCursor::nextBlock() {
    bool taken = false;
    blocking([&] { taken = rows_->take(block_); }, [&] { connection_->interrupt(); });
    if (taken) {
        row_ = 0;
        return true;
    }
    auto error = rows_->error();
    if (!error) return false;
    database_.Error = true;
    database_.ErrorMessage = *error;
    throw DatabaseException(*error);
}

}  // namespace bracken
