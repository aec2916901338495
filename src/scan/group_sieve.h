#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace bracken {

// The lower five bits of each of eight bytes, the first byte in the lowest place.
uint64_t classesAt(const char* text);

// The second of the two sieves: which of the positions that the filter let through may be the place
// of a name, by a hash of the three, four, five or seven bytes there, whichever is the most of what
// each name has. Without a branch, since which way one went could not be foreseen.
class GroupSieve {
  public:
    // Bytes hashed, by the kind of group.
    static constexpr std::array<size_t, 4> lengths = {3, 4, 5, 7};
    static constexpr size_t hashBits = 16;

    // Which kind of group stands for a name that has so many bytes from its group on, three or
    // more.
    static size_t kindOf(size_t bytes) {
        return bytes >= 7 ? 3 : bytes >= 5 ? 2 : bytes >= 4 ? 1 : 0;
    }
    // `hashBits` bits; what stands behind the group's bytes has no part in it.
    static uint32_t hashOf(uint64_t classes, size_t kind) {
        uint64_t group = classes << (64 - 8 * lengths[kind]);
        return static_cast<uint32_t>((group * 0x9e3779b97f4a7c15) >> (64 - hashBits));
    }

    void add(uint64_t classes, size_t kind);
    // Keeps the positions that may be a name's, in order; gives their number. Reads eight bytes
    // from each position in `text`.
    size_t sift(const char* text, uint16_t* positions, size_t count) const;

  private:
    // One bit for each hash.
    using Bits = std::array<uint64_t, (1U << hashBits) / 64>;
    std::array<Bits, lengths.size()> present_{};
};

}  // namespace bracken
