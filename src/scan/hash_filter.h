#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace bracken {

// The symbols (see NgramFilter) of the eight bytes at `text`, the first byte's in the lowest place.
uint64_t symbolsAt(const char* text);

// The second filter: which of the positions that the NgramFilter let through may be those of a
// name, by a hash of the 3, 4, 5 or 7 bytes there. A name is hashed with the largest of these
// numbers that it has bytes for. Without a branch, since its outcome would be hard to predict.
class HashFilter {
  public:
    static constexpr std::array<size_t, 4> lengths = {3, 4, 5, 7};
    static constexpr size_t hashBits = 16;
    // Of 4 in `lengths`.
    static constexpr size_t gramIndex = 1;

    // Index in `lengths` of the number of bytes hashed where a name has so many, three or more,
    // from its gram on.
    static size_t lengthIndex(size_t bytes) {
        return bytes >= 7 ? 3 : bytes >= 5 ? 2 : bytes >= 4 ? 1 : 0;
    }
    // `hashBits` bits; later symbols than the length's have no part in it.
    static uint32_t hashOf(uint64_t symbols, size_t lengthIndex) {
        uint64_t hashed = symbols << (64 - 8 * lengths[lengthIndex]);
        return static_cast<uint32_t>((hashed * 0x9e3779b97f4a7c15) >> (64 - hashBits));
    }

    void add(uint64_t symbols, size_t lengthIndex);
    // Keeps the positions that may be a name's, in order; returns their number. Reads eight bytes
    // from each position in `text`.
    size_t keepPossible(const char* text, uint16_t* positions, size_t count) const;

  private:
    // One bit for each hash.
    using Bits = std::array<uint64_t, (1U << hashBits) / 64>;
    static void set(Bits& bits, uint32_t hash);
    // By the first four symbols, then by as many as a name has.
    size_t keepGrams(const char* text, uint16_t* positions, size_t count) const;
    size_t keepLengths(const char* text, uint16_t* positions, size_t count) const;

    // The first four symbols of each name; of three, with whatever may follow them. One look-up
    // here spares most positions the four others.
    Bits grams_{};
    // Of all lengths: together they take less of the fastest cache than one for each.
    Bits present_{};
};

}  // namespace bracken
