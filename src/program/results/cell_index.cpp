#include "program/results/cell_index.h"

#include <algorithm>

namespace bracken {

namespace {

size_t place(uint32_t name, size_t size) {
    return (name * 2654435761U >> 7) & (size - 1);
}

}  // namespace

CellIndex::CellIndex(std::string_view text, FileNamePool& pool) {
    complete_ = text.empty() || text.back() == ',';
    while (!text.empty()) {
        size_t end = std::min(text.find(','), text.size());
        if (end > 0) add(pool.intern(text.substr(0, end)), pool);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

void CellIndex::grow() {
    std::vector<uint32_t> old = std::move(slots_);
    slots_.assign(std::max<size_t>(8, old.size() * 2), 0);
    count_ = 0;
    for (uint32_t slot : old)
        if (slot != 0) insert(slot - 1);
}

void CellIndex::insert(uint32_t name) {
    if ((count_ + 1) * 4 > slots_.size() * 3) grow();
    size_t at = place(name, slots_.size());
    while (slots_[at] != 0 && slots_[at] != name + 1) at = (at + 1) & (slots_.size() - 1);
    if (slots_[at] == 0) count_++;
    slots_[at] = name + 1;
}

void CellIndex::add(uint32_t name, const FileNamePool& pool) {
    insert(name);
    for (uint32_t inner : pool.inside(name)) insert(inner);
}

bool CellIndex::contains(uint32_t name, const FileNamePool& pool) {
    auto has = [this](uint32_t number) {
        if (slots_.empty()) return false;
        size_t at = place(number, slots_.size());
        while (slots_[at] != 0 && slots_[at] != number + 1) at = (at + 1) & (slots_.size() - 1);
        return slots_[at] != 0;
    };
    if (has(name)) return true;
    const std::vector<uint32_t>& around = pool.around(name);
    if (std::none_of(around.begin(), around.end(), has)) return false;
    insert(name);
    return true;
}

}  // namespace bracken
