#include "framework/containers/key_index.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "framework/exception.h"
#include "framework/text/text.h"

namespace bracken {

namespace {

// Bit 0x20 is all that tells the cases of a letter apart; that setting it also makes other bytes
// alike only costs a comparison.
constexpr uint64_t caseBits = 0x2020202020202020;
constexpr uint64_t multiplier = 0x9E3779B97F4A7C15;

uint64_t load(const char* bytes, size_t count) {
    uint64_t word = 0;
    std::memcpy(&word, bytes, count);
    return word | caseBits;
}

uint32_t hashOf(std::string_view key) {
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

}  // namespace

uint32_t KeyIndex::find(std::string_view key) const {
    return slots_.empty() ? none : find(key, hashOf(key));
}

uint32_t KeyIndex::find(std::string_view key, uint32_t hash) const {
    if (table_.empty()) return none;
    const size_t mask = table_.size() - 1;
    for (size_t at = hash & mask; table_[at].slot != none; at = (at + 1) & mask) {
        if (table_[at].hash != hash) continue;
        const Slot& slot = slots_[table_[at].slot];
        if (slot.alive && equal(slot.key, key)) return table_[at].slot;
    }
    return none;
}

std::pair<uint32_t, bool> KeyIndex::insert(std::string_view key) {
    const uint32_t hash = hashOf(key);
    const uint32_t known = find(key, hash);
    if (known != none) return {known, false};
    const auto slot = static_cast<uint32_t>(slots_.size());
    slots_.push_back({std::string(key), hash, true});
    if (dead_ > 0) ranks_.append();
    if (slots_.size() * 4 > table_.size() * 3) {
        rebuild();
    } else {
        enter(slot);
    }
    return {slot, true};
}

void KeyIndex::remove(uint32_t slot) {
    if (dead_ == 0) ranks_.reset(static_cast<uint32_t>(slots_.size()));
    ranks_.kill(slot);
    slots_[slot].alive = false;
    slots_[slot].key = std::string();
    ++dead_;
}

void KeyIndex::clear() {
    slots_.clear();
    table_.clear();
    dead_ = 0;
}

uint32_t KeyIndex::slotAt(int i) const {
    if (i < 0 || i >= count()) throw IndexOutOfRangeException("Key " + Str(i));
    const auto n = static_cast<uint32_t>(i);
    return dead_ == 0 ? n : ranks_.select(n);
}

void KeyIndex::rebuild() {
    const size_t least = std::max<size_t>(8, slots_.size() * 2);
    table_.assign(std::bit_ceil(least), Entry());
    for (uint32_t slot = 0; slot < slots_.size(); ++slot)
        if (slots_[slot].alive) enter(slot);
}

void KeyIndex::enter(uint32_t slot) {
    const size_t mask = table_.size() - 1;
    size_t at = slots_[slot].hash & mask;
    // A dead slot's entry is as good as a free one: else a key that comes and goes would leave one
    // behind each time, for the next to step over.
    while (table_[at].slot != none && (dead_ == 0 || slots_[table_[at].slot].alive))
        at = (at + 1) & mask;
    table_[at] = {slots_[slot].hash, slot};
}

}  // namespace bracken
