#include "scan/matcher.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "framework/text/text.h"
#include "scan/group_choice.h"

namespace bracken {

namespace {

constexpr uint32_t bucketBits = 13;
constexpr uint32_t bucketCount = 1U << bucketBits;
constexpr uint64_t classesOfEight = 0x1f1f1f1f1f1f1f1f;
constexpr uint32_t classesOfFour = 0x1f1f1f1f;
constexpr uint32_t classesOfThree = 0x001f1f1f;

// Positions that the filter tests at a call.
constexpr size_t stride = 2048;

// Eight bytes, the first in the lowest place.
uint64_t load(const char* text) {
    uint64_t bytes;
    std::memcpy(&bytes, text, sizeof bytes);
    return bytes;
}

// 16 bits of a group of four bytes or three.
uint32_t hashOf(uint64_t group) {
    return (static_cast<uint32_t>(group) * 2654435761U) >> 16;
}

uint32_t bucketOf(uint32_t hash) {
    return hash >> (16 - bucketBits);
}

unsigned char lower(char byte) {
    auto c = static_cast<unsigned char>(byte);
    return c >= 'A' && c <= 'Z' ? c | 0x20 : c;
}

// Whether `text` begins with `name`, which is in lower case; there are enough bytes.
bool beginsWith(const char* text, const std::string& name) {
    for (char c : name)
        if (lower(*text++) != static_cast<unsigned char>(c)) return false;
    return true;
}

}  // namespace

void Matcher::Hits::clear(size_t nameCount) {
    if (seen_.size() != nameCount) {
        seen_.assign(nameCount, 0);
    } else {
        for (uint32_t name : names_) seen_[name] = 0;
    }
    names_.clear();
}

void Matcher::Hits::add(uint32_t name) {
    if (seen_[name] != 0) return;
    seen_[name] = 1;
    names_.push_back(name);
}

Matcher::Matcher(const std::vector<std::string>& names) {
    std::vector<uint32_t> grouped;
    names_.reserve(names.size());
    for (const std::string& name : names) {
        auto number = static_cast<uint32_t>(names_.size());
        names_.push_back(Lowercase(name));
        longest_ = std::max(longest_, name.size());
        if (name.size() >= 3) grouped.push_back(number);
        if (name.size() == 2) twos_.push_back(number);
        if (name.size() == 1) ones_.push_back(number);
    }
    addGrouped(grouped);
}

void Matcher::addGrouped(const std::vector<uint32_t>& grouped) {
    std::vector<Candidate> candidates;
    GroupChoice choice(filter_);
    for (uint32_t number : grouped) {
        const std::string& name = names_[number];
        auto offset = static_cast<uint32_t>(choice.choose(name));
        filter_.add(std::string_view(name).substr(offset, 4));
        std::array<char, 8> start{};
        size_t known = name.copy(start.data(), start.size(), offset);
        uint64_t mask = classesOfEight >> (64 - 8 * known);
        candidates.push_back({load(start.data()) & mask, mask, number, offset});
        (known >= 4 ? anyOfFour_ : anyOfThree_) = true;
    }
    sortCandidates(candidates);
}

void Matcher::sortCandidates(std::vector<Candidate>& candidates) {
    auto hash = [](const Candidate& candidate) {
        return hashOf(static_cast<uint32_t>(candidate.start & classesOfFour));
    };
    starts_.assign(bucketCount + 1, 0);
    for (const Candidate& candidate : candidates) {
        present_[hash(candidate) / 64] |= uint64_t{1} << (hash(candidate) % 64);
        starts_[bucketOf(hash(candidate)) + 1]++;
    }
    for (uint32_t bucket = 0; bucket < bucketCount; bucket++)
        starts_[bucket + 1] += starts_[bucket];
    candidates_.resize(candidates.size());
    std::vector<uint32_t> next = starts_;
    for (const Candidate& candidate : candidates)
        candidates_[next[bucketOf(hash(candidate))]++] = candidate;
}

void Matcher::search(std::string_view text, Hits& hits) const {
    if (!ones_.empty() || !twos_.empty()) searchShort(text, hits);
    if (candidates_.empty()) return;
    std::array<uint32_t, stride> positions;
    size_t at = 0;
    for (; at + stride + 3 <= text.size(); at += stride) {
        size_t count =
            filter_.collect(text.data() + at, stride / GroupFilter::block, positions.data());
        for (size_t i = 0; i < count; i++) verify(text, at + positions[i], hits);
    }
    // The last positions by a copy with room behind it.
    std::array<char, stride + 3 + GroupFilter::block> tail;
    size_t left = text.size() - at;
    std::memcpy(tail.data(), text.data() + at, left);
    std::memset(tail.data() + left, 0, tail.size() - left);
    size_t blocks = (left + GroupFilter::block - 1) / GroupFilter::block;
    size_t count = filter_.collect(tail.data(), std::min(blocks, stride / GroupFilter::block),
                                   positions.data());
    for (size_t i = 0; i < count; i++) verify(text, at + positions[i], hits);
}

void Matcher::verify(std::string_view text, size_t at, Hits& hits) const {
    uint64_t start = 0;
    if (at + sizeof start <= text.size())
        start = load(text.data() + at);
    else if (at < text.size())
        std::memcpy(&start, text.data() + at, text.size() - at);
    if (anyOfFour_) compare(text, at, start, hashOf(start & classesOfFour), hits);
    if (anyOfThree_) compare(text, at, start, hashOf(start & classesOfThree), hits);
}

void Matcher::compare(std::string_view text, size_t at, uint64_t start, uint32_t hash,
                      Hits& hits) const {
    if ((present_[hash / 64] >> (hash % 64) & 1) == 0) return;
    uint32_t bucket = bucketOf(hash);
    for (uint32_t i = starts_[bucket]; i < starts_[bucket + 1]; i++) {
        const Candidate& candidate = candidates_[i];
        if ((start & candidate.mask) != candidate.start || hits.has(candidate.name)) continue;
        const std::string& name = names_[candidate.name];
        if (candidate.offset > at || at - candidate.offset + name.size() > text.size()) continue;
        if (beginsWith(text.data() + at - candidate.offset, name)) hits.add(candidate.name);
    }
}

void Matcher::searchShort(std::string_view text, Hits& hits) const {
    for (uint32_t number : ones_)
        if (!hits.has(number) && InStr(0, text, names_[number]) > 0) hits.add(number);
    auto allFound = [&] {
        return std::all_of(twos_.begin(), twos_.end(),
                           [&](uint32_t name) { return hits.has(name); });
    };
    if (allFound()) return;
    // Which pairs of bytes, in lower case, stand in the text.
    std::vector<bool> pairs(1U << 16);
    for (size_t at = 0; at + 1 < text.size(); at++)
        pairs[static_cast<size_t>(lower(text[at]) << 8 | lower(text[at + 1]))] = true;
    for (uint32_t number : twos_) {
        const std::string& name = names_[number];
        if (pairs[static_cast<size_t>(lower(name[0]) << 8 | lower(name[1]))]) hits.add(number);
    }
}

}  // namespace bracken
