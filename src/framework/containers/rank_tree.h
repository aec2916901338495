#pragma once

#include <cstdint>
#include <vector>

namespace bracken {

// Counts which of a growing row of slots are alive, and finds the n-th one alive; both in
// logarithmic time.
class RankTree {
  public:
    // A row of `count` slots, all alive.
    void reset(uint32_t count);
    // Adds a slot that is alive at the end.
    void append();
    void kill(uint32_t slot);
    // The slot of the n-th one alive, n from 0 and below their number.
    uint32_t select(uint32_t n) const;

  private:
    // A Fenwick tree: entry i - 1 counts the slots in front of i as far back as i's lowest bit
    // says.
    std::vector<uint32_t> sums_;
};

}  // namespace bracken
