#include "scan/hash_filter.h"

#include <cstring>

namespace bracken {

uint64_t symbolsAt(const char* text) {
    uint64_t bytes;
    std::memcpy(&bytes, text, sizeof bytes);
    return bytes & 0x1f1f1f1f1f1f1f1f;
}

void HashFilter::add(uint64_t symbols, size_t lengthIndex) {
    uint32_t hash = hashOf(symbols, lengthIndex);
    present_[lengthIndex][hash / 64] |= uint64_t{1} << (hash % 64);
}

size_t HashFilter::keepPossible(const char* text, uint16_t* positions, size_t count) const {
    size_t kept = 0;
    for (size_t i = 0; i < count; i++) {
        uint64_t symbols = symbolsAt(text + positions[i]);
        uint64_t passed = 0;
        for (size_t length = 0; length < lengths.size(); length++) {
            uint32_t hash = hashOf(symbols, length);
            passed |= present_[length][hash / 64] >> (hash % 64);
        }
        positions[kept] = positions[i];
        kept += passed & 1;
    }
    return kept;
}

}  // namespace bracken
