#include "scan/ngram_filter.h"

#if defined(__x86_64__)
#include <immintrin.h>

#include <bit>

namespace bracken {

namespace {

// What 32 positions need of one of their four bytes.
struct Symbols {
    // Looking up sixteen bytes takes the lower four bits of each; the fifth is the top bit of each
    // byte of `upper`, which alone counts there, so a shift of 16-bit lanes does.
    __m256i symbols;
    __m256i upper;
    // A symbol's class, as a bit.
    __m256i bit;
};

__attribute__((target("avx2"), always_inline)) inline Symbols load(const char* text) {
    __m256i bits = _mm256_set1_epi64x(static_cast<long long>(0x8040201008040201ULL));
    __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(text));
    __m256i symbols = _mm256_and_si256(bytes, _mm256_set1_epi8(NgramFilter::symbols - 1));
    return {symbols, _mm256_slli_epi16(symbols, 3), _mm256_shuffle_epi8(bits, symbols)};
}

// The classes that go with each symbol.
template <class Classes>
__attribute__((target("avx2"), always_inline)) inline __m256i lookUp(const Classes& classes,
                                                                     const Symbols& at) {
    auto low = _mm256_load_si256(reinterpret_cast<const __m256i*>(classes.low.data()));
    auto high = _mm256_load_si256(reinterpret_cast<const __m256i*>(classes.high.data()));
    return _mm256_blendv_epi8(_mm256_shuffle_epi8(low, at.symbols),
                              _mm256_shuffle_epi8(high, at.symbols), at.upper);
}

// Bytes other than 0 where the two may be a pair, as looked up by `at`.
template <class Classes>
__attribute__((target("avx2"), always_inline)) inline __m256i testPair(const Classes& classes,
                                                                       const Symbols& at,
                                                                       const Symbols& other) {
    return _mm256_and_si256(lookUp(classes, at), other.bit);
}

// Bit i for position i of 32.
template <class Places>
__attribute__((target("avx2"), always_inline)) inline uint32_t testHalf(const Places& places,
                                                                        const char* text) {
    Symbols a = load(text);
    Symbols b = load(text + 1);
    Symbols c = load(text + 2);
    Symbols d = load(text + 3);
    // Of the first pair one side is enough: the other takes little away.
    __m256i least = testPair(places[0].after, a, b);
    least = _mm256_min_epu8(least, testPair(places[1].after, b, c));
    least = _mm256_min_epu8(least, testPair(places[1].before, c, b));
    least = _mm256_min_epu8(least, testPair(places[2].after, c, d));
    least = _mm256_min_epu8(least, testPair(places[2].before, d, c));
    __m256i failed = _mm256_cmpeq_epi8(least, _mm256_setzero_si256());
    return ~static_cast<uint32_t>(_mm256_movemask_epi8(failed));
}

__attribute__((always_inline)) inline size_t listPositions(const NgramFilter::Masks& masks,
                                                           size_t blocks, uint16_t* positions) {
    size_t count = 0;
    for (size_t i = 0; i < blocks; i++) {
        uint64_t mask = masks[i];
        uint16_t* next = positions + count;
        count += static_cast<size_t>(std::popcount(mask));
        // Several at a time, the last of them maybe none: their number is hard to predict.
        constexpr size_t several = 2;
        do {
            for (size_t k = 0; k < several; k++) {
                next[k] = static_cast<uint16_t>(i * NgramFilter::block +
                                                static_cast<size_t>(std::countr_zero(mask)));
                mask &= mask - 1;
            }
            next += several;
        } while (mask != 0);
    }
    return count;
}

}  // namespace

bool NgramFilter::hasAvx2() {
    return __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("bmi") != 0 &&
           __builtin_cpu_supports("popcnt") != 0;
}

__attribute__((target("avx2,bmi,popcnt"))) size_t NgramFilter::collectAvx2(
    const char* text, size_t blocks, uint16_t* positions) const {
    Masks masks;
    for (size_t i = 0; i < blocks; i++) {
        const char* at = text + i * block;
        prefetchAfter(at);
        masks[i] = testHalf(pairs_, at) | uint64_t{testHalf(pairs_, at + block / 2)} << 32;
    }
    return listPositions(masks, blocks, positions);
}

}  // namespace bracken

#else

namespace bracken {

bool NgramFilter::hasAvx2() {
    return false;
}

size_t NgramFilter::collectAvx2(const char* text, size_t blocks, uint16_t* positions) const {
    return collectPlain(text, blocks, positions);
}

}  // namespace bracken

#endif
