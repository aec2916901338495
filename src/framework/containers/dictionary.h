#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "framework/containers/key_index.h"
#include "framework/exception.h"

namespace bracken {

// Insertion-ordered map from text to V, looked up without regard to ASCII letter case. Every
// operation, removal and Key(i) included, takes near-constant time. A key set again keeps its first
// spelling and place; one removed and set again goes to the end.
template <class V>
class Dictionary {
  public:
    bool HasKey(std::string_view key) const { return index_.find(key) != KeyIndex::none; }
    int Count() const { return index_.count(); }

    // KeyNotFoundException for a missing key. Valid until the dictionary changes.
    const V& Value(std::string_view key) const { return cells_[slotOf(key)].value; }
    // The value, null for a missing key. Valid until the dictionary changes.
    const V* find(std::string_view key) const {
        const uint32_t slot = index_.find(key);
        return slot == KeyIndex::none ? nullptr : &cells_[slot].value;
    }
    // Inserts or replaces.
    void Value(std::string_view key, V value) {
        const auto [slot, added] = index_.insert(key);
        if (added) {
            cells_.push_back({std::move(value)});
        } else {
            cells_[slot].value = std::move(value);
        }
    }

    // KeyNotFoundException for a missing key.
    void Remove(std::string_view key) {
        const uint32_t slot = slotOf(key);
        index_.remove(slot);
        cells_[slot].value = V();
        if (!index_.wasteful()) return;
        index_.compact(
            [this](uint32_t from, uint32_t to) { cells_[to] = std::move(cells_[from]); });
        cells_.resize(static_cast<size_t>(Count()));
    }
    void Clear() {
        index_.clear();
        cells_.clear();
    }

    // The i-th key in insertion order, counted from 0, and its value; IndexOutOfRangeException.
    const std::string& Key(int i) const { return index_.key(index_.slotAt(i)); }
    const V& ValueAt(int i) const { return cells_[index_.slotAt(i)].value; }

  private:
    // Keeps a vector of bool what other vectors are.
    struct Cell {
        V value;
    };

    uint32_t slotOf(std::string_view key) const {
        const uint32_t slot = index_.find(key);
        if (slot == KeyIndex::none) throw KeyNotFoundException(std::string(key));
        return slot;
    }

    KeyIndex index_;
    // Parallel to the slots of the index.
    std::vector<Cell> cells_;
};

}  // namespace bracken
