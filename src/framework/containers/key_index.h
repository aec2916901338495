#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "framework/containers/rank_tree.h"

namespace bracken {

// The keys of a Dictionary: a row of slots in insertion order, found by a hash that disregards
// ASCII letter case. A removed key leaves a dead slot behind until the owner has the row compacted.
class KeyIndex {
  public:
    static constexpr uint32_t none = UINT32_MAX;

    // The slot of a key, or none.
    uint32_t find(std::string_view key) const;
    // The key's slot, and whether it has been added for it, at the end of the row.
    std::pair<uint32_t, bool> insert(std::string_view key);
    void remove(uint32_t slot);
    void clear();

    int count() const { return static_cast<int>(slots_.size() - dead_); }
    // The slot of the i-th key, counted from 0; IndexOutOfRangeException.
    uint32_t slotAt(int i) const;
    const std::string& key(uint32_t slot) const { return slots_[slot].key; }

    // Whether dead slots outweigh the living.
    bool wasteful() const { return dead_ > 16 && dead_ > slots_.size() / 2; }
    // Drops the dead slots; calls move(from, to) in ascending order for each slot that moves.
    template <class Move>
    void compact(Move move) {
        uint32_t to = 0;
        for (uint32_t from = 0; from < slots_.size(); ++from) {
            if (!slots_[from].alive) continue;
            if (from != to) {
                slots_[to] = std::move(slots_[from]);
                move(from, to);
            }
            ++to;
        }
        slots_.resize(to);
        dead_ = 0;
        rebuild();
    }

  private:
    struct Slot {
        std::string key;
        uint32_t hash = 0;
        bool alive = false;
    };

    struct Entry {
        uint32_t hash = 0;
        uint32_t slot = none;
    };

    uint32_t find(std::string_view key, uint32_t hash) const;
    // Makes the table anew, with room for twice the slots.
    void rebuild();
    void enter(uint32_t slot);

    std::vector<Slot> slots_;
    // Open addressing by linear steps. Dead slots stay entered until another takes the place. The
    // hash stands here too, so that a step over another key's entry doesn't reach for its slot.
    std::vector<Entry> table_;
    uint32_t dead_ = 0;
    // Kept only while there are dead slots.
    RankTree ranks_;
};

}  // namespace bracken
