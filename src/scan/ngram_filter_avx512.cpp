#include "scan/ngram_filter.h"

#if defined(__x86_64__)
#include <immintrin.h>

#include <bit>
#include <numeric>

namespace bracken {

namespace {

// The rows of a place, as bytes: the one for a pair is number 4 * first + second / 8.
struct Rows {
    __m512i low;
    __m512i high;
};

__attribute__((target("avx512f,avx512bw,avx512vbmi"), always_inline)) inline __mmask64 testPair(
    const Rows& rows, __m512i first, __m512i second) {
    __m512i bits = _mm512_set1_epi64(static_cast<long long>(0x8040201008040201ULL));
    __m512i byte = _mm512_and_si512(_mm512_srli_epi16(second, 3), _mm512_set1_epi8(3));
    __m512i index = _mm512_or_si512(_mm512_slli_epi16(first, 2), byte);
    __m512i row = _mm512_permutex2var_epi8(rows.low, index, rows.high);
    return _mm512_test_epi8_mask(row, _mm512_shuffle_epi8(bits, second));
}

__attribute__((target("avx512f,avx512bw,avx512vbmi"), always_inline)) inline __m512i loadSymbols(
    const char* text) {
    return _mm512_and_si512(_mm512_loadu_si512(text), _mm512_set1_epi8(NgramFilter::symbols - 1));
}

// Without a branch. Of each half of a block the places of the bits are packed into 16-bit numbers.
__attribute__((target("avx512f,avx512bw,avx512vbmi2,popcnt"), always_inline)) inline size_t
listPositions(const NgramFilter::Masks& masks, size_t blocks, uint16_t* positions) {
    constexpr size_t half = NgramFilter::block / 2;
    alignas(64) std::array<uint16_t, half> first;
    std::iota(first.begin(), first.end(), uint16_t{0});
    __m512i places = _mm512_load_si512(first.data());
    size_t count = 0;
    for (size_t i = 0; i < 2 * blocks; i++) {
        auto mask = static_cast<uint32_t>(masks[i / 2] >> (i % 2 * half));
        _mm512_storeu_si512(positions + count, _mm512_maskz_compress_epi16(mask, places));
        count += static_cast<size_t>(std::popcount(mask));
        places = _mm512_add_epi16(places, _mm512_set1_epi16(half));
    }
    return count;
}

}  // namespace

bool NgramFilter::hasAvx512() {
    return hasAvx2() && __builtin_cpu_supports("avx512bw") != 0 &&
           __builtin_cpu_supports("avx512vbmi") != 0 && __builtin_cpu_supports("avx512vbmi2") != 0;
}

__attribute__((target("avx512f,avx512bw,avx512vbmi,avx512vbmi2,bmi,popcnt"))) size_t
NgramFilter::collectAvx512(const char* text, size_t blocks, uint16_t* positions) const {
    Rows rows[3];
    for (size_t place = 0; place < 3; place++)
        rows[place] = {_mm512_load_si512(&rows_[place][0]), _mm512_load_si512(&rows_[place][16])};
    Masks masks;
    for (size_t i = 0; i < blocks; i++) {
        const char* at = text + i * block;
        prefetchAfter(at);
        __m512i a = loadSymbols(at);
        __m512i b = loadSymbols(at + 1);
        __m512i c = loadSymbols(at + 2);
        __m512i d = loadSymbols(at + 3);
        masks[i] = testPair(rows[0], a, b) & testPair(rows[1], b, c) & testPair(rows[2], c, d);
    }
    return listPositions(masks, blocks, positions);
}

}  // namespace bracken

#else

namespace bracken {

bool NgramFilter::hasAvx512() {
    return false;
}

size_t NgramFilter::collectAvx512(const char* text, size_t blocks, uint16_t* positions) const {
    return collectPlain(text, blocks, positions);
}

}  // namespace bracken

#endif
