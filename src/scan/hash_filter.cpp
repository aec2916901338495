#include "scan/hash_filter.h"

#include <cstring>

namespace bracken {

uint64_t symbolsAt(const char* text) {
    uint64_t bytes;
    std::memcpy(&bytes, text, sizeof bytes);
    return bytes & 0x1f1f1f1f1f1f1f1f;
}

void HashFilter::set(Bits& bits, uint32_t hash) {
    bits[hash / 64] |= uint64_t{1} << (hash % 64);
}

void HashFilter::add(uint64_t symbols, size_t lengthIndex) {
    set(present_, hashOf(symbols, lengthIndex));
    if (lengthIndex > 0) return set(grams_, hashOf(symbols, gramIndex));
    for (uint64_t fourth = 0; fourth < 32; fourth++)
        set(grams_, hashOf((symbols & 0x1f1f1f) | fourth << 24, gramIndex));
}

size_t HashFilter::keepPossible(const char* text, uint16_t* positions, size_t count) const {
    return keepLengths(text, positions, keepGrams(text, positions, count));
}

size_t HashFilter::keepGrams(const char* text, uint16_t* positions, size_t count) const {
    size_t kept = 0;
    for (size_t i = 0; i < count; i++) {
        uint32_t hash = hashOf(symbolsAt(text + positions[i]), gramIndex);
        positions[kept] = positions[i];
        kept += (grams_[hash / 64] >> (hash % 64)) & 1;
    }
    return kept;
}

size_t HashFilter::keepLengths(const char* text, uint16_t* positions, size_t count) const {
    size_t kept = 0;
    for (size_t i = 0; i < count; i++) {
        uint64_t symbols = symbolsAt(text + positions[i]);
        uint64_t passed = 0;
        for (size_t length = 0; length < lengths.size(); length++) {
            uint32_t hash = hashOf(symbols, length);
            passed |= present_[hash / 64] >> (hash % 64);
        }
        positions[kept] = positions[i];
        kept += passed & 1;
    }
    return kept;
}

}  // namespace bracken
