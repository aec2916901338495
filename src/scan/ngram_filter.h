#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace bracken {

// A filter of 4-grams. A byte's symbol is its lower five bits, which makes the two cases of a
// letter one. A 4-gram passes if each of its three pairs of neighbours is a pair, at that place, of
// some gram added: so everything added passes, and little else does. (The code for AVX2 lets some
// more pass.)
//
// ngram_filter.cpp holds the plain code and the choice, ngram_filter_avx2.cpp and
// ngram_filter_avx512.cpp the code for processors that have these instructions.
class NgramFilter {
  public:
    // What the code is made of. AVX-512 is that with look-ups in 128 bytes (VBMI) and packing of
    // 16-bit numbers (VBMI2).
    enum class Instructions { plain, avx2, avx512 };
    // The best that this processor has.
    static Instructions best();

    // `instructions` are at most the best.
    explicit NgramFilter(Instructions instructions) : instructions_(instructions) {}

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
        if (instructions_ == Instructions::avx512) return collectAvx512(text, blocks, positions);
        if (instructions_ == Instructions::avx2) return collectAvx2(text, blocks, positions);
        return collectPlain(text, blocks, positions);
    }

  private:
    static bool hasAvx2();
    static bool hasAvx512();
    // The blocks after these are next, once the positions have been looked at; without asking, the
    // processor fetches each page of them late. The address may lie past the text.
    static void prefetchAfter(const char* text) { __builtin_prefetch(text + maxBlocks * block); }
    void setPair(int place, int first, int second);
    size_t collectPlain(const char* text, size_t blocks, uint16_t* positions) const;
    size_t collectAvx2(const char* text, size_t blocks, uint16_t* positions) const;
    size_t collectAvx512(const char* text, size_t blocks, uint16_t* positions) const;

    // Bit `second` of rows_[place][first]: the pair may be there.
    alignas(64) std::array<std::array<uint32_t, symbols>, 3> rows_{};
    // Much the same for AVX2, which looks up in 16 bytes: of each pair the one symbol and the class
    // of the other, its lower three bits, from both sides.
    struct Pairs {
        // Bit k of a symbol's byte: a pair has it and one of class k. Each half of the symbols
        // twice, for the two lanes of a register.
        struct alignas(32) Classes {
            std::array<uint8_t, 32> low;
            std::array<uint8_t, 32> high;
            void set(int symbol, int other);
        };
        Classes after;
        Classes before;
    };
    std::array<Pairs, 3> pairs_{};
    const Instructions instructions_;
};

}  // namespace bracken
