#pragma once

#include <string_view>
#include <vector>

#include "framework/controls/list_row.h"

namespace bracken {

// The rows of a list: text by row and column, both counted from 0. Rows and columns must be in
// range; a row has as many cells as were written to it, those after them read as empty.
class ListRows {
  public:
    int count() const { return static_cast<int>(rows_.size()); }
    // Valid until the rows change.
    std::string_view text(int row, int column) const {
        return at(row).text(static_cast<size_t>(column));
    }
    void set(int row, int column, std::string_view text);
    // Amortised constant for each byte.
    void append(int row, int column, std::string_view text);

    // Adds a row with these cells.
    void add(const std::vector<std::string_view>& cells);
    void remove(int row);
    void clear();

    // The rows' numbers in the order of that column's text: stable, two numbers by value, other
    // text by bytes without letter case. Descending keeps equal rows in their order too.
    std::vector<int> sortedOrder(int column, bool descending) const;
    // Puts the rows into the given order of their present numbers.
    void reorder(const std::vector<int>& order);

  private:
    const ListRow& at(int row) const { return rows_[static_cast<size_t>(row)]; }

    std::vector<ListRow> rows_;
};

}  // namespace bracken
