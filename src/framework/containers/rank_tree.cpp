#include "framework/containers/rank_tree.h"

#include <bit>

namespace bracken {

namespace {

uint32_t lowestBit(uint32_t value) {
    return value & (~value + 1);
}

}  // namespace

void RankTree::reset(uint32_t count) {
    sums_.resize(count);
    for (uint32_t i = 1; i <= count; ++i) sums_[i - 1] = lowestBit(i);
}

void RankTree::append() {
    const auto end = static_cast<uint32_t>(sums_.size()) + 1;
    uint32_t sum = 1;
    for (uint32_t i = end - 1; i > end - lowestBit(end); i -= lowestBit(i)) sum += sums_[i - 1];
    sums_.push_back(sum);
}

void RankTree::kill(uint32_t slot) {
    for (uint32_t i = slot + 1; i <= sums_.size(); i += lowestBit(i)) --sums_[i - 1];
}

uint32_t RankTree::select(uint32_t n) const {
    uint32_t slot = 0;
    for (uint32_t step = std::bit_floor(static_cast<uint32_t>(sums_.size())); step > 0; step /= 2) {
        if (slot + step <= sums_.size() && sums_[slot + step - 1] <= n) {
            slot += step;
            n -= sums_[slot - 1];
        }
    }
    return slot;
}

}  // namespace bracken
