#include "framework/containers/dictionary.h"

#include <cstring>

namespace bracken {

namespace {

// The cases of a letter differ in bit 0x20 only. Setting it makes some other bytes equal too, which
// costs a comparison and no more.
constexpr uint64_t caseBits = 0x2020202020202020;
constexpr uint64_t multiplier = 0x9E3779B97F4A7C15;

uint64_t load(const char* bytes, size_t count) {
    uint64_t word = 0;
    std::memcpy(&word, bytes, count);
    return word | caseBits;
}

}  // namespace

uint32_t foldedHash(std::string_view key) {
    uint64_t hash = key.size() * multiplier;
    size_t at = 0;
    for (; at + 8 <= key.size(); at += 8) {
        hash = std::rotl((hash ^ load(key.data() + at, 8)) * multiplier, 29);
    }
    if (at < key.size()) hash ^= load(key.data() + at, key.size() - at);
    hash *= multiplier;
    hash ^= hash >> 32;
    hash *= multiplier;
    return static_cast<uint32_t>(hash >> 32);
}

}  // namespace bracken
