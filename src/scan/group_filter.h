#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace bracken {

// A filter over groups of four bytes. Bytes are taken by their lower five bits, which makes the two
// cases of a letter one; a group passes if each of its three pairs of neighbours is a pair, at that
// place, of some group added. So everything added passes, and little else does.
class GroupFilter {
  public:
    // Number of classes of bytes.
    static constexpr int classes = 32;
    // Positions tested at a time.
    static constexpr size_t block = 64;

    static int classOf(char byte) { return static_cast<unsigned char>(byte) & (classes - 1); }

    // Adds the group of four, or of three if there are no more, at the start of `text`.
    void add(std::string_view text);
    // Whether adding would set the pair at place 0, 1 or 2 for the first time.
    bool isNewPair(int place, int first, int second) const {
        return ((rows_[place][first] >> second) & 1U) == 0;
    }

    // Blocks that `collect` goes through at a time, at most.
    static constexpr size_t maxBlocks = 32;
    // What `collect` may write beyond the positions that it counts.
    static constexpr size_t excess = 32;

    // Writes to `positions` every position below `blocks` blocks at which a group may begin, in
    // order, and gives their number. Reads three bytes behind the last block; `positions` has room
    // for all and `excess` more.
    size_t collect(const char* text, size_t blocks, uint16_t* positions) const {
        if (wide_) return collectByWideVectors(text, blocks, positions);
        return vectors_ ? collectByVectors(text, blocks, positions)
                        : collectByBytes(text, blocks, positions);
    }
    size_t collectByBytes(const char* text, size_t blocks, uint16_t* positions) const;
    // For processors that have AVX2 only.
    size_t collectByVectors(const char* text, size_t blocks, uint16_t* positions) const;
    static bool hasVectors();
    // For processors that have AVX-512 with look-ups in 128 bytes and packing of numbers only.
    size_t collectByWideVectors(const char* text, size_t blocks, uint16_t* positions) const;
    static bool hasWideVectors();

  private:
    void setPair(int place, int first, int second);

    // Bit `second` of rows_[place][first]: the pair may stand there.
    alignas(64) std::array<std::array<uint32_t, classes>, 3> rows_{};
    // The same, for AVX2: byte g of a row apart, twice for the two halves of a register.
    struct alignas(32) Plane {
        std::array<uint8_t, 32> low;
        std::array<uint8_t, 32> high;
    };
    std::array<std::array<Plane, 4>, 3> planes_{};
    bool vectors_ = hasVectors();
    bool wide_ = hasWideVectors();
};

}  // namespace bracken
