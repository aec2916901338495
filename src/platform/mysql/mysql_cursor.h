#pragma once

#include <memory>

#include "framework/database/database.h"
#include "platform/mysql/connection.h"

namespace bracken {

// Reads a result block by block. Asking for a row after the current block waits for the next one as
// a statement does: windows paint meanwhile.
class MySQLCursor final : public DatabaseCursor {
  public:
    MySQLCursor(Database& database, std::shared_ptr<Connection> connection,
                std::shared_ptr<RowStream> rows);
    ~MySQLCursor() override;

    bool EOF_() override;
    void MoveNext() override;
    int FieldCount() override { return static_cast<int>(rows_->names().size()); }
    std::string_view fieldName(int n) override;
    std::string_view fieldText(int n) override;
    void Close() override;

  private:
    size_t checkedIndex(int n) const;
    bool nextBlock();

    Database& database_;
    // Outlives the rows, which read from it.
    std::shared_ptr<Connection> connection_;
    std::shared_ptr<RowStream> rows_;
    RowBlock block_;
    size_t row_ = 0;
    bool closed_ = false;
};

}  // namespace bracken
