#include "framework/controls/list_rows.h"

namespace bracken {

std::string_view ListRows::text(int row, int column) const {
    const std::vector<std::string>& cells = rows_[static_cast<size_t>(row)]->cells;
    auto at = static_cast<size_t>(column);
    return at < cells.size() ? std::string_view(cells[at]) : std::string_view();
}

std::string& ListRows::cell(int row, int column) {
    std::vector<std::string>& cells = rows_[static_cast<size_t>(row)]->cells;
    auto at = static_cast<size_t>(column);
    if (at >= cells.size()) cells.resize(at + 1);
    return cells[at];
}

void ListRows::set(int row, int column, std::string_view text) {
    cell(row, column) = text;
    auto& names = rows_[static_cast<size_t>(row)]->names;
    if (static_cast<size_t>(column) < names.size()) names[static_cast<size_t>(column)] = nullptr;
}

void ListRows::append(int row, int column, std::string_view text) {
    cell(row, column) += text;
}

std::unique_ptr<CellNames>& ListRows::names(int row, int column) {
    auto& names = rows_[static_cast<size_t>(row)]->names;
    auto at = static_cast<size_t>(column);
    if (at >= names.size()) names.resize(at + 1);
    return names[at];
}

void ListRows::add(std::string_view text) {
    rows_.push_back(std::make_unique<Row>());
    rows_.back()->cells.emplace_back(text);
}

void ListRows::remove(int row) {
    rows_.erase(rows_.begin() + row);
}

void ListRows::clear() {
    rows_.clear();
}

void ListRows::reorder(const std::vector<int>& order) {
    std::vector<std::unique_ptr<Row>> reordered;
    reordered.reserve(rows_.size());
    for (int row : order) reordered.push_back(std::move(rows_[static_cast<size_t>(row)]));
    rows_ = std::move(reordered);
}

}  // namespace bracken
