#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace bracken {

// A list's row, small however many there are. As added, its cells lie end to end in one block, with
// no byte to spare; once a cell is appended to, each cell has a buffer of its own.
class ListRow {
  public:
    explicit ListRow(const std::vector<std::string_view>& cells);
    ~ListRow();
    ListRow(ListRow&& other) noexcept;
    ListRow& operator=(ListRow&& other) noexcept;

    // Empty for a cell that was never written. Valid until the row changes.
    std::string_view text(size_t column) const;
    // `text` may lie in this row.
    void set(size_t column, std::string_view text);
    void append(size_t column, std::string_view text);

  private:
    struct Cell;
    using Cells = std::vector<Cell>;

    std::vector<std::string_view> texts() const;
    void pack(const std::vector<std::string_view>& texts);
    void unpack();
    // That cell of an unpacked row, added if it is missing.
    Cell& cell(size_t column);

    // The packed cells, see list_row.cpp for their layout; null once the row is unpacked.
    std::unique_ptr<unsigned char[]> block_;
    // The cells with buffers of their own, null while the row is packed.
    std::unique_ptr<Cells> cells_;
};

}  // namespace bracken
