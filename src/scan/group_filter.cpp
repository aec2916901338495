#include "scan/group_filter.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

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

size_t GroupFilter::collectByBytes(const char* text, size_t blocks, uint32_t* positions) const {
    size_t count = 0;
    for (size_t i = 0; i < blocks * block; i++) {
        int a = classOf(text[i]);
        int b = classOf(text[i + 1]);
        int c = classOf(text[i + 2]);
        int d = classOf(text[i + 3]);
        positions[count] = static_cast<uint32_t>(i);
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
__attribute__((target("avx2,bmi,popcnt"), always_inline)) inline __m256i testPair(
    const Planes& planes, __m256i first, __m256i second) {
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

__attribute__((target("avx2,bmi,popcnt"), always_inline)) inline __m256i loadClasses(
    const char* text) {
    return _mm256_and_si256(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(text)),
                            _mm256_set1_epi8(GroupFilter::classes - 1));
}

// Bit i for position i.
template <class Planes>
__attribute__((target("avx2,bmi,popcnt"), always_inline)) inline uint32_t testBlock(
    const Planes& planes, const char* text) {
    const __m256i a = loadClasses(text);
    const __m256i b = loadClasses(text + 1);
    const __m256i c = loadClasses(text + 2);
    const __m256i d = loadClasses(text + 3);
    const __m256i passed =
        _mm256_and_si256(_mm256_and_si256(testPair(planes[0], a, b), testPair(planes[1], b, c)),
                         testPair(planes[2], c, d));
    return static_cast<uint32_t>(_mm256_movemask_epi8(passed));
}

}  // namespace

__attribute__((target("avx2,bmi,popcnt"))) size_t GroupFilter::collectByVectors(
    const char* text, size_t blocks, uint32_t* positions) const {
    // The masks come first, and apart: where the processor guesses wrong whether one is empty, the
    // tests need not wait.
    std::array<uint32_t, mostBlocks> masks;
    for (size_t i = 0; i < blocks; i++) masks[i] = testBlock(planes_, text + i * block);
    size_t count = 0;
    for (size_t i = 0; i < blocks; i++) {
        uint32_t mask = masks[i];
        uint32_t* next = positions + count;
        count += static_cast<size_t>(__builtin_popcount(mask));
        // Several at a time, since how many there are can't be foreseen.
        do {
            for (size_t k = 0; k < excess; k++) {
                next[k] = static_cast<uint32_t>(i * block) + _tzcnt_u32(mask);
                mask = _blsr_u32(mask);
            }
            next += excess;
        } while (mask != 0);
    }
    return count;
}

#else

bool GroupFilter::hasVectors() {
    return false;
}

size_t GroupFilter::collectByVectors(const char* text, size_t blocks, uint32_t* positions) const {
    return collectByBytes(text, blocks, positions);
}

#endif

}  // namespace bracken
