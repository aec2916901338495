#include "scan/name_table.h"

#include <algorithm>

#include "framework/text/text.h"

namespace bracken {

NameTable::NameTable(const Listbox& list) {
    std::vector<std::string> names;
    for (int row = 0; row < list.ListCount(); row++) {
        std::string name = Lowercase(list.cellText(row, 0));
        if (numbers_.emplace(name, static_cast<uint32_t>(names.size())).second)
            names.push_back(std::move(name));
    }
    matcher_ = std::make_unique<Matcher>(names);
}

int64_t NameTable::numberOf(std::string_view name) const {
    auto found = numbers_.find(Lowercase(name));
    return found == numbers_.end() ? -1 : int64_t{found->second};
}

bool RowIndex::update(const Listbox& list, const std::shared_ptr<const NameTable>& table) {
    if (table_ == table && version_ == list.structureVersion()) return true;
    std::vector<std::vector<int>> rows(table->matcher().nameCount());
    for (int row = 0; row < list.ListCount(); row++) {
        int64_t number = table->numberOf(list.cellText(row, 0));
        if (number < 0) return false;
        rows[static_cast<size_t>(number)].push_back(row);
    }
    rows_ = std::move(rows);
    table_ = table;
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
