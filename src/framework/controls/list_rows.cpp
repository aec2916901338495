#include "framework/controls/list_rows.h"

#include <utility>

namespace bracken {

void ListRows::set(int row, int column, std::string_view text) {
    rows_[static_cast<size_t>(row)].set(static_cast<size_t>(column), text);
}

void ListRows::append(int row, int column, std::string_view text) {
    rows_[static_cast<size_t>(row)].append(static_cast<size_t>(column), text);
}

void ListRows::add(const std::vector<std::string_view>& cells) {
    rows_.emplace_back(cells);
}

void ListRows::remove(int row) {
    rows_.erase(rows_.begin() + row);
}

void ListRows::clear() {
    std::vector<ListRow>().swap(rows_);
}

void ListRows::reorder(const std::vector<int>& order) {
    std::vector<ListRow> reordered;
    reordered.reserve(rows_.size());
    for (int row : order) reordered.push_back(std::move(rows_[static_cast<size_t>(row)]));
    rows_ = std::move(reordered);
}

}  // namespace bracken
