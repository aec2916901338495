#include "program/results/row_index.h"

#include <algorithm>
#include <string_view>

namespace bracken {

std::shared_ptr<const TableNames> tableNamesOf(const Listbox& list) {
    std::vector<std::string_view> names;
    for (int row = 0; row < list.ListCount(); row++) names.push_back(list.cellText(row, 0));
    return std::make_shared<const TableNames>(names);
}

bool RowIndex::update(const Listbox& list, const std::shared_ptr<const TableNames>& tables) {
    if (tables_ == tables && version_ == list.structureVersion()) return true;
    std::vector<std::vector<int>> rows(tables->matcher().nameCount());
    for (int row = 0; row < list.ListCount(); row++) {
        int64_t number = tables->numberOf(list.cellText(row, 0));
        if (number < 0) return false;
        rows[static_cast<size_t>(number)].push_back(row);
    }
    rows_ = std::move(rows);
    tables_ = tables;
    version_ = list.structureVersion();
    return true;
}

std::vector<int> RowIndex::rowsOf(const std::vector<uint32_t>& names) const {
    std::vector<int> found;
    for (uint32_t name : names) found.insert(found.end(), rows_[name].begin(), rows_[name].end());
    std::sort(found.begin(), found.end());
    return found;
}

}  // namespace bracken
