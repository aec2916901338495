#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "framework/controls/cell_names.h"

namespace bracken {

// The rows of a list: text by row and column, both counted from 0. Rows and columns must be in
// range; a row has as many cells as were written to it, those behind read as empty.
class ListRows {
  public:
    int count() const { return static_cast<int>(rows_.size()); }
    std::string_view text(int row, int column) const;
    void set(int row, int column, std::string_view text);
    void append(int row, int column, std::string_view text);

    void add(std::string_view text);
    void remove(int row);
    void clear();
    // Puts the rows into the given order of their present numbers.
    void reorder(const std::vector<int>& order);

    // The cell's index of names, empty until one is made; it moves with its row and is dropped by
    // every write to the cell but an append.
    std::unique_ptr<CellNames>& names(int row, int column);

  private:
    struct Row {
        std::vector<std::string> cells;
        std::vector<std::unique_ptr<CellNames>> names;
    };

    std::string& cell(int row, int column);

    std::vector<std::unique_ptr<Row>> rows_;
};

}  // namespace bracken
