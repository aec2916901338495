#include "scan/group_filter.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

#include <bit>
#include <numeric>

namespace bracken {

void GroupFilter::setPair(int place, int first, int second) {
    rows_[place][first] |= 1U << second;
    Plane& plane = planes_[place][second / 8];
    auto& half = first < 16 ? plane.low : plane.high;
    auto bit = static_cast<uint8_t>(1U << (second % 8));
    half[first % 16] |= bit;
    half[first % 16 + 16] |= bit;
}

void GroupFilter::add(std::string_view text) {
    for (int place = 0; place < 2; place++)
        setPair(place, classOf(text[place]), classOf(text[place + 1]));
    if (text.size() > 3) {
        setPair(2, classOf(text[2]), classOf(text[3]));
        return;
    }
    for (int second = 0; second < classes; second++) setPair(2, classOf(text[2]), second);
}

size_t GroupFilter::collectByBytes(const char* text, size_t blocks, uint16_t* positions) const {
    size_t count = 0;
    for (size_t i = 0; i < blocks * block; i++) {
        int a = classOf(text[i]);
        int b = classOf(text[i + 1]);
        int c = classOf(text[i + 2]);
        int d = classOf(text[i + 3]);
        positions[count] = static_cast<uint16_t>(i);
        count += (rows_[0][a] >> b) & (rows_[1][b] >> c) & (rows_[2][c] >> d) & 1U;
    }
    return count;
}

#if defined(__x86_64__)

bool GroupFilter::hasVectors() {
    return __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("bmi") != 0 &&
           __builtin_cpu_supports("popcnt") != 0;
}

namespace {

// A pair's test for 32 positions at once: bytes of all ones where it holds. A row of 32 bits is
// looked up as four bytes, each table in two halves of 16; only the top bit of each byte of a
// chooser counts, so shifts of 16-bit lanes do.
template <class Planes>
__attribute__((target("avx2"), always_inline)) inline __m256i testPair(const Planes& planes,
                                                                       __m256i first,
                                                                       __m256i second) {
    const __m256i bits = _mm256_set1_epi64x(static_cast<long long>(0x8040201008040201ULL));
    const __m256i four = _mm256_set1_epi8(15);
    const __m256i nibbles = _mm256_and_si256(first, four);
    const __m256i upper = _mm256_slli_epi16(first, 3);
    __m256i bytes[4];
    for (size_t i = 0; i < 4; i++) {
        auto low = _mm256_load_si256(reinterpret_cast<const __m256i*>(planes[i].low.data()));
        auto high = _mm256_load_si256(reinterpret_cast<const __m256i*>(planes[i].high.data()));
        bytes[i] = _mm256_blendv_epi8(_mm256_shuffle_epi8(low, nibbles),
                                      _mm256_shuffle_epi8(high, nibbles), upper);
    }
    const __m256i bit3 = _mm256_slli_epi16(second, 4);
    const __m256i bit4 = _mm256_slli_epi16(second, 3);
    const __m256i row = _mm256_blendv_epi8(_mm256_blendv_epi8(bytes[0], bytes[1], bit3),
                                           _mm256_blendv_epi8(bytes[2], bytes[3], bit3), bit4);
    const __m256i wanted = _mm256_shuffle_epi8(bits, _mm256_and_si256(second, four));
    return _mm256_cmpeq_epi8(_mm256_and_si256(row, wanted), wanted);
}

__attribute__((target("avx2"), always_inline)) inline __m256i loadClasses(const char* text) {
    return _mm256_and_si256(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(text)),
                            _mm256_set1_epi8(GroupFilter::classes - 1));
}

// Bit i for position i of 32.
template <class Planes>
__attribute__((target("avx2"), always_inline)) inline uint32_t testHalf(const Planes& planes,
                                                                        const char* text) {
    const __m256i a = loadClasses(text);
    const __m256i b = loadClasses(text + 1);
    const __m256i c = loadClasses(text + 2);
    const __m256i d = loadClasses(text + 3);
    const __m256i passed =
        _mm256_and_si256(_mm256_and_si256(testPair(planes[0], a, b), testPair(planes[1], b, c)),
                         testPair(planes[2], c, d));
    return static_cast<uint32_t>(_mm256_movemask_epi8(passed));
}

// The rows of a place, as bytes: the one for a pair is number 4 * first + second / 8.
struct WideRows {
    __m512i low;
    __m512i high;
};

__attribute__((target("avx512f,avx512bw,avx512vbmi"), always_inline)) inline __mmask64 testPair(
    const WideRows& rows, __m512i first, __m512i second) {
    const __m512i bits = _mm512_set1_epi64(static_cast<long long>(0x8040201008040201ULL));
    const __m512i byte = _mm512_and_si512(_mm512_srli_epi16(second, 3), _mm512_set1_epi8(3));
    const __m512i index = _mm512_or_si512(_mm512_slli_epi16(first, 2), byte);
    const __m512i row = _mm512_permutex2var_epi8(rows.low, index, rows.high);
    return _mm512_test_epi8_mask(row, _mm512_shuffle_epi8(bits, second));
}

__attribute__((target("avx512f,avx512bw,avx512vbmi"), always_inline)) inline __m512i
loadWideClasses(const char* text) {
    return _mm512_and_si512(_mm512_loadu_si512(text), _mm512_set1_epi8(GroupFilter::classes - 1));
}

// A mask for each block. They come first, and apart from their use: where the processor guesses
// wrong how many positions one has, the tests need not wait.
using Masks = std::array<uint64_t, GroupFilter::maxBlocks>;

__attribute__((always_inline)) inline size_t listPositions(const Masks& masks, size_t blocks,
                                                           uint16_t* positions) {
    size_t count = 0;
    for (size_t i = 0; i < blocks; i++) {
        uint64_t mask = masks[i];
        uint16_t* next = positions + count;
        count += static_cast<size_t>(std::popcount(mask));
        // Several at a time, and some of no block: how many there are can't be foreseen.
        constexpr size_t several = 4;
        do {
            for (size_t k = 0; k < several; k++) {
                next[k] = static_cast<uint16_t>(i * GroupFilter::block +
                                                static_cast<size_t>(std::countr_zero(mask)));
                mask &= mask - 1;
            }
            next += several;
        } while (mask != 0);
    }
    return count;
}

// Without a branch. Of each half of a block the places of the bits are packed into 16-bit numbers.
__attribute__((target("avx512f,avx512bw,avx512vbmi2,popcnt"), always_inline)) inline size_t
listByWideVectors(const Masks& masks, size_t blocks, uint16_t* positions) {
    constexpr size_t half = GroupFilter::block / 2;
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

__attribute__((target("avx2,bmi,popcnt"))) size_t GroupFilter::collectByVectors(
    const char* text, size_t blocks, uint16_t* positions) const {
    Masks masks;
    for (size_t i = 0; i < blocks; i++) {
        const char* at = text + i * block;
        masks[i] = testHalf(planes_, at) | uint64_t{testHalf(planes_, at + block / 2)} << 32;
    }
    return listPositions(masks, blocks, positions);
}

bool GroupFilter::hasWideVectors() {
    return hasVectors() && __builtin_cpu_supports("avx512bw") != 0 &&
           __builtin_cpu_supports("avx512vbmi") != 0 && __builtin_cpu_supports("avx512vbmi2") != 0;
}

__attribute__((target("avx512f,avx512bw,avx512vbmi,avx512vbmi2,bmi,popcnt"))) size_t
GroupFilter::collectByWideVectors(const char* text, size_t blocks, uint16_t* positions) const {
    WideRows rows[3];
    for (size_t place = 0; place < 3; place++)
        rows[place] = {_mm512_load_si512(&rows_[place][0]), _mm512_load_si512(&rows_[place][16])};
    Masks masks;
    for (size_t i = 0; i < blocks; i++) {
        const char* at = text + i * block;
        const __m512i a = loadWideClasses(at);
        const __m512i b = loadWideClasses(at + 1);
        const __m512i c = loadWideClasses(at + 2);
        const __m512i d = loadWideClasses(at + 3);
        masks[i] = testPair(rows[0], a, b) & testPair(rows[1], b, c) & testPair(rows[2], c, d);
    }
    return listByWideVectors(masks, blocks, positions);
}

#else

bool GroupFilter::hasVectors() {
    return false;
}

bool GroupFilter::hasWideVectors() {
    return false;
}

size_t GroupFilter::collectByVectors(const char* text, size_t blocks, uint16_t* positions) const {
    return collectByBytes(text, blocks, positions);
}

size_t GroupFilter::collectByWideVectors(const char* text, size_t blocks,
                                         uint16_t* positions) const {
    return collectByBytes(text, blocks, positions);
}

#endif

}  // namespace bracken
