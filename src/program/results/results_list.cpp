#include "program/results/results_list.h"

#include "framework/text/text.h"

namespace bracken {

namespace {

constexpr int namesColumn = 1;
constexpr int pathsColumn = 2;

// The index goes by names, which commas separate.
bool isIndexable(std::string_view name) {
    return !name.empty() && name.find(',') == std::string_view::npos;
}

}  // namespace

void ResultsList::recordFile(int row, const std::string& name, const std::string& path) {
    if (equal(cellText(row, namesColumn), notFoundYet)) setCell(row, namesColumn, "");
    if (isListed(row, name)) return;
    append(row, name);
    appendToCell(row, pathsColumn, path);
    appendToCell(row, pathsColumn, ",");
}

void ResultsList::setCell(int row, int column, std::string_view text) {
    Listbox::setCell(row, column, text);
    auto at = static_cast<size_t>(row);
    if (column == namesColumn && at < indexes_.size()) indexes_[at] = nullptr;
}

bool ResultsList::isListed(int row, const std::string& name) {
    std::string_view listed = cellText(row, namesColumn);
    if (name.empty() || listed.empty()) return false;
    if (!isIndexable(name)) return InStr(0, listed, name) > 0;
    return index(row).contains(numberOf(name), names_);
}

void ResultsList::append(int row, const std::string& name) {
    CellIndex& listed = index(row);
    bool indexed = isIndexable(name) && listed.complete();
    if (indexed) listed.add(numberOf(name), names_);
    appendToCell(row, namesColumn, name);
    appendToCell(row, namesColumn, ",");
    if (!indexed) indexes_[static_cast<size_t>(row)] = nullptr;
}

CellIndex& ResultsList::index(int row) {
    if (indexedVersion_ != structureVersion()) {
        indexes_.clear();
        names_.clear();
        lastName_.clear();
        indexedVersion_ = structureVersion();
    }
    indexes_.resize(static_cast<size_t>(ListCount()));
    auto& index = indexes_[static_cast<size_t>(row)];
    if (index == nullptr) index = std::make_unique<CellIndex>(cellText(row, namesColumn), names_);
    return *index;
}

uint32_t ResultsList::numberOf(const std::string& name) {
    if (name != lastName_) {
        lastNumber_ = names_.intern(name);
        lastName_ = name;
    }
    return lastNumber_;
}

}  // namespace bracken
