#include "scan/group_sieve.h"

#include <cstring>

namespace bracken {

uint64_t classesAt(const char* text) {
    uint64_t bytes;
    std::memcpy(&bytes, text, sizeof bytes);
    return bytes & 0x1f1f1f1f1f1f1f1f;
}

void GroupSieve::add(uint64_t classes, size_t kind) {
    uint32_t hash = hashOf(classes, kind);
    present_[kind][hash / 64] |= uint64_t{1} << (hash % 64);
}

size_t GroupSieve::sift(const char* text, uint16_t* positions, size_t count) const {
    size_t kept = 0;
    for (size_t i = 0; i < count; i++) {
        uint64_t classes = classesAt(text + positions[i]);
        uint64_t passed = 0;
        for (size_t kind = 0; kind < lengths.size(); kind++) {
            uint32_t hash = hashOf(classes, kind);
            passed |= present_[kind][hash / 64] >> (hash % 64);
        }
        positions[kept] = positions[i];
        kept += passed & 1;
    }
    return kept;
}

}  // namespace bracken
