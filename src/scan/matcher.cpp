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

// Positions that the filter tests at a call.
constexpr size_t stride = 2048;
// Bytes behind a position that are looked at there.
constexpr size_t room = 8;

uint32_t bucketOf(uint32_t hash) {
    return hash >> (GroupSieve::hashBits - bucketBits);
}

unsigned char lower(char byte) {
    auto c = static_cast<unsigned char>(byte);
    return c >= 'A' && c <= 'Z' ? c | 0x20 : c;
}

bool isNameByte(char byte) {
    const unsigned char c = lower(byte);
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '$';
}

// A number of its own for each text of one or two bytes.
constexpr size_t shortKeys = (1U << 16) + (1U << 8);
size_t shortKey(std::string_view text) {
    return text.size() == 2 ? static_cast<size_t>(lower(text[0]) << 8 | lower(text[1]))
                            : (1U << 16) + lower(text[0]);
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

Matcher::Matcher(const std::vector<std::string>& names, HitRule rule) : rule_(rule) {
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
        uint64_t classes = classesAt(start.data());
        size_t kind = GroupSieve::kindOf(known);
        sieve_.add(classes, kind);
        candidates.push_back({classes, ~uint64_t{0} >> (64 - 8 * known), kind, number, offset});
        if (std::find(kinds_.begin(), kinds_.end(), kind) == kinds_.end()) kinds_.push_back(kind);
    }
    sortCandidates(candidates);
}

void Matcher::sortCandidates(const std::vector<Candidate>& candidates) {
    auto bucket = [](const Candidate& candidate) {
        return bucketOf(GroupSieve::hashOf(candidate.start, candidate.kind));
    };
    starts_.assign(bucketCount + 1, 0);
    for (const Candidate& candidate : candidates) starts_[bucket(candidate) + 1]++;
    for (uint32_t b = 0; b < bucketCount; b++) starts_[b + 1] += starts_[b];
    candidates_.resize(candidates.size());
    std::vector<uint32_t> next = starts_;
    for (const Candidate& candidate : candidates)
        candidates_[next[bucket(candidate)]++] = candidate;
}

void Matcher::search(std::string_view text, Hits& hits) const {
    const bool whole = rule_ == HitRule::wholeNames;
    if (!ones_.empty() || !twos_.empty())
        whole ? searchShortWhole(text, hits) : searchShort(text, hits);
    if (candidates_.empty()) return;
    size_t at = 0;
    for (; at + stride + room <= text.size(); at += stride)
        searchGroups(text, at, text.data() + at, stride / GroupFilter::block, hits);
    // The last positions by a copy with room behind it.
    std::array<char, stride + room + GroupFilter::block> tail;
    while (at < text.size()) {
        size_t left = std::min(text.size() - at, stride + room);
        std::memcpy(tail.data(), text.data() + at, left);
        std::memset(tail.data() + left, 0, tail.size() - left);
        size_t blocks = (std::min(left, stride) + GroupFilter::block - 1) / GroupFilter::block;
        searchGroups(text, at, tail.data(), blocks, hits);
        at += stride;
    }
}

void Matcher::searchGroups(std::string_view text, size_t begin, const char* bytes, size_t blocks,
                           Hits& hits) const {
    std::array<uint16_t, stride + GroupFilter::excess> positions;
    size_t count = filter_.collect(bytes, blocks, positions.data());
    count = sieve_.sift(bytes, positions.data(), count);
    for (size_t i = 0; i < count; i++)
        compare(text, begin + positions[i], classesAt(bytes + positions[i]), hits);
}

void Matcher::compare(std::string_view text, size_t at, uint64_t start, Hits& hits) const {
    for (size_t kind : kinds_) {
        uint32_t bucket = bucketOf(GroupSieve::hashOf(start, kind));
        for (uint32_t i = starts_[bucket]; i < starts_[bucket + 1]; i++) {
            const Candidate& candidate = candidates_[i];
            if ((start & candidate.mask) != candidate.start || hits.has(candidate.name)) continue;
            const std::string& name = names_[candidate.name];
            if (candidate.offset > at || at - candidate.offset + name.size() > text.size())
                continue;
            const size_t begin = at - candidate.offset;
            if (beginsWith(text.data() + begin, name) && counts(text, begin, name.size()))
                hits.add(candidate.name);
        }
    }
}

bool Matcher::counts(std::string_view text, size_t begin, size_t size) const {
    if (rule_ == HitRule::anywhere) return true;
    return begin > 0 && begin + size < text.size() && !isNameByte(text[begin - 1]) &&
           !isNameByte(text[begin + size]);
}

void Matcher::searchShortWhole(std::string_view text, Hits& hits) const {
    std::vector<bool> present(shortKeys);
    for (size_t at = 1; at + 1 < text.size(); at++)
        for (size_t size = 1; size <= 2; size++)
            if (counts(text, at, size)) present[shortKey(text.substr(at, size))] = true;
    for (const auto* numbers : {&ones_, &twos_})
        for (uint32_t number : *numbers)
            if (present[shortKey(names_[number])]) hits.add(number);
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
    for (size_t at = 0; at + 1 < text.size(); at++) pairs[shortKey(text.substr(at, 2))] = true;
    for (uint32_t number : twos_)
        if (pairs[shortKey(names_[number])]) hits.add(number);
}

}  // namespace bracken
