#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace bracken {

// A filter of 4-grams. A byte's symbol is its lower five bits, which makes the two cases of a
// letter one. A 4-gram passes if each of its three pairs of neighbours is a pair, at that place, of
// some gram added: so everything added passes, and little else does.
//
// ngram_filter.cpp holds the plain code and the choice, ngram_filter_avx2.cpp and
// ngram_filter_avx512.cpp the code for processors that have these instructions.
class NgramFilter {
  public:
    // Number of symbols.
    static constexpr int symbols = 32;
    // Positions tested at a time.
    static constexpr size_t block = 64;
    // Blocks that `collect` takes at most.
    static constexpr size_t maxBlocks = 32;
    // Elements that `collect` may write after the positions that it returns.
    static constexpr size_t slack = 32;

    // Bit i of masks[b]: position i of block b passes. All are computed before any is read, so that
    // a mispredicted number of positions in one block doesn't delay the tests of the next.
    using Masks = std::array<uint64_t, maxBlocks>;

    static int symbolOf(char byte) { return static_cast<unsigned char>(byte) & (symbols - 1); }

    // Adds the 4-gram at the start of `text`, or the 3-gram if there is no more.
    void add(std::string_view text);
    // Whether adding would set the pair at place 0, 1 or 2 for the first time.
    bool isNewPair(int place, int first, int second) const {
        return ((rows_[place][first] >> second) & 1U) == 0;
    }

    // Writes to `positions` every position in the first `blocks` blocks at which a gram may begin,
    // in order, and returns their number. Reads three bytes after the last block; `positions` has
    // room for all and for `slack` more.
    size_t collect(const char* text, size_t blocks, uint16_t* positions) const {
        if (avx512_) return collectAvx512(text, blocks, positions);
        return avx2_ ? collectAvx2(text, blocks, positions) : collectPlain(text, blocks, positions);
    }
    // The same, for tests. The two others are only for processors that have their instructions:
    // AVX-512 with look-ups in 128 bytes (VBMI) and packing of 16-bit numbers (VBMI2).
    size_t collectPlain(const char* text, size_t blocks, uint16_t* positions) const;
    size_t collectAvx2(const char* text, size_t blocks, uint16_t* positions) const;
    size_t collectAvx512(const char* text, size_t blocks, uint16_t* positions) const;
    static bool hasAvx2();
    static bool hasAvx512();

  private:
    void setPair(int place, int first, int second);

    // Bit `second` of rows_[place][first]: the pair may be there.
    alignas(64) std::array<std::array<uint32_t, symbols>, 3> rows_{};
    // The same for AVX2: one plane for each byte of a row, each twice for the two halves of a
    // register.
    struct alignas(32) Plane {
        std::array<uint8_t, 32> low;
        std::array<uint8_t, 32> high;
    };
    std::array<std::array<Plane, 4>, 3> planes_{};
    bool avx2_ = hasAvx2();
    bool avx512_ = hasAvx512();
};

}  // namespace bracken
