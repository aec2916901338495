#include "scan/ngram_filter.h"

#if defined(__x86_64__)
#include <immintrin.h>

#include <bit>

namespace bracken {

namespace {

// A pair's test for 32 positions at once: bytes of all ones where it holds. A row of 32 bits is
// looked up as four bytes, each table in two halves of 16; only the top bit of each byte of a
// chooser counts, so shifts of 16-bit lanes do.
template <class Planes>
__attribute__((target("avx2"), always_inline)) inline __m256i testPair(const Planes& planes,
                                                                       __m256i first,
                                                                       __m256i second) {
    __m256i bits = _mm256_set1_epi64x(static_cast<long long>(0x8040201008040201ULL));
    __m256i four = _mm256_set1_epi8(15);
    __m256i nibbles = _mm256_and_si256(first, four);
    __m256i upper = _mm256_slli_epi16(first, 3);
    __m256i bytes[4];
    for (size_t i = 0; i < 4; i++) {
        auto low = _mm256_load_si256(reinterpret_cast<const __m256i*>(planes[i].low.data()));
        auto high = _mm256_load_si256(reinterpret_cast<const __m256i*>(planes[i].high.data()));
        bytes[i] = _mm256_blendv_epi8(_mm256_shuffle_epi8(low, nibbles),
                                      _mm256_shuffle_epi8(high, nibbles), upper);
    }
    __m256i bit3 = _mm256_slli_epi16(second, 4);
    __m256i bit4 = _mm256_slli_epi16(second, 3);
    __m256i row = _mm256_blendv_epi8(_mm256_blendv_epi8(bytes[0], bytes[1], bit3),
                                     _mm256_blendv_epi8(bytes[2], bytes[3], bit3), bit4);
    __m256i mask = _mm256_shuffle_epi8(bits, _mm256_and_si256(second, four));
    return _mm256_cmpeq_epi8(_mm256_and_si256(row, mask), mask);
}

__attribute__((target("avx2"), always_inline)) inline __m256i loadSymbols(const char* text) {
    return _mm256_and_si256(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(text)),
                            _mm256_set1_epi8(NgramFilter::symbols - 1));
}

// Bit i for position i of 32.
template <class Planes>
__attribute__((target("avx2"), always_inline)) inline uint32_t testHalf(const Planes& planes,
                                                                        const char* text) {
    __m256i a = loadSymbols(text);
    __m256i b = loadSymbols(text + 1);
    __m256i c = loadSymbols(text + 2);
    __m256i d = loadSymbols(text + 3);
    __m256i passed =
        _mm256_and_si256(_mm256_and_si256(testPair(planes[0], a, b), testPair(planes[1], b, c)),
                         testPair(planes[2], c, d));
    return static_cast<uint32_t>(_mm256_movemask_epi8(passed));
}

__attribute__((always_inline)) inline size_t listPositions(const NgramFilter::Masks& masks,
                                                           size_t blocks, uint16_t* positions) {
    size_t count = 0;
    for (size_t i = 0; i < blocks; i++) {
        uint64_t mask = masks[i];
        uint16_t* next = positions + count;
        count += static_cast<size_t>(std::popcount(mask));
        // Several at a time, the last of them maybe none: their number is hard to predict.
        constexpr size_t several = 4;
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
        masks[i] = testHalf(planes_, at) | uint64_t{testHalf(planes_, at + block / 2)} << 32;
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
