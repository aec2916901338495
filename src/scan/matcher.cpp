#include "scan/matcher.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "framework/text/ascii.h"
#include "framework/text/text.h"
#include "scan/gram_choice.h"

namespace bracken {

namespace {

constexpr uint32_t bucketBits = 13;
constexpr uint32_t bucketCount = 1U << bucketBits;

// Positions tested at a call of the filter.
constexpr size_t stride = NgramFilter::maxBlocks * NgramFilter::block;
// Bytes read from a position on.
constexpr size_t lookAhead = 8;

uint32_t bucketOf(uint32_t hash) {
    return hash >> (HashFilter::hashBits - bucketBits);
}

bool isNameByte(char byte) {
    char c = asciiLower(byte);
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '$';
}

// A number of its own for each text of one or two bytes.
constexpr size_t shortKeys = (1U << 16) + (1U << 8);
size_t shortKey(std::string_view text) {
    auto byte = [](char c) { return size_t{static_cast<unsigned char>(asciiLower(c))}; };
    return text.size() == 2 ? byte(text[0]) << 8 | byte(text[1]) : (1U << 16) + byte(text[0]);
}

// Whether `text` begins with `name`, which is in lower case; there are enough bytes.
bool beginsWith(const char* text, const std::string& name) {
    for (char c : name)
        if (asciiLower(*text++) != c) return false;
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

Matcher::Matcher(const std::vector<std::string>& names, HitRule rule,
                 NgramFilter::Instructions instructions)
    : rule_(rule), ngrams_(instructions) {
    std::vector<uint32_t> longNames;
    names_.reserve(names.size());
    for (const std::string& name : names) {
        auto number = static_cast<uint32_t>(names_.size());
        names_.push_back(Lowercase(name));
        maxNameLength_ = std::max(maxNameLength_, name.size());
        if (name.size() >= 3) longNames.push_back(number);
        if (name.size() == 2) twos_.push_back(number);
        if (name.size() == 1) ones_.push_back(number);
    }
    addLong(longNames);
}

void Matcher::addLong(const std::vector<uint32_t>& numbers) {
    std::vector<Candidate> candidates;
    GramChoice choice(ngrams_);
    for (uint32_t number : numbers) {
        const std::string& name = names_[number];
        auto offset = static_cast<uint32_t>(choice.choose(name));
        ngrams_.add(std::string_view(name).substr(offset, 4));
        std::array<char, 8> start{};
        size_t known = name.copy(start.data(), start.size(), offset);
        uint64_t symbols = symbolsAt(start.data());
        size_t length = HashFilter::lengthIndex(known);
        hashes_.add(symbols, length);
        length = std::min(length, HashFilter::gramIndex);
        candidates.push_back({symbols, ~uint64_t{0} >> (64 - 8 * known), length, number, offset});
        if (std::find(lengths_.begin(), lengths_.end(), length) == lengths_.end())
            lengths_.push_back(length);
    }
    sortCandidates(candidates);
}

void Matcher::sortCandidates(const std::vector<Candidate>& candidates) {
    auto bucket = [](const Candidate& candidate) {
        return bucketOf(HashFilter::hashOf(candidate.symbols, candidate.lengthIndex));
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
    bool whole = rule_ == HitRule::wholeNames;
    if (!ones_.empty() || !twos_.empty())
        whole ? searchShortWhole(text, hits) : searchShort(text, hits);
    if (candidates_.empty()) return;
    size_t at = 0;
    for (; at + stride + lookAhead <= text.size(); at += stride)
        searchGrams(text, at, text.data() + at, stride / NgramFilter::block, hits);
    // The last positions in a copy, followed by zeros to read.
    std::array<char, stride + lookAhead + NgramFilter::block> tail;
    while (at < text.size()) {
        size_t left = std::min(text.size() - at, stride + lookAhead);
        std::memcpy(tail.data(), text.data() + at, left);
        std::memset(tail.data() + left, 0, tail.size() - left);
        size_t blocks = (std::min(left, stride) + NgramFilter::block - 1) / NgramFilter::block;
        searchGrams(text, at, tail.data(), blocks, hits);
        at += stride;
    }
}

void Matcher::searchGrams(std::string_view text, size_t begin, const char* bytes, size_t blocks,
                          Hits& hits) const {
    std::array<uint16_t, stride + NgramFilter::slack> positions;
    size_t count = ngrams_.collect(bytes, blocks, positions.data());
    count = hashes_.keepPossible(bytes, positions.data(), count);
    for (size_t i = 0; i < count; i++)
        compare(text, begin + positions[i], symbolsAt(bytes + positions[i]), hits);
}

void Matcher::compare(std::string_view text, size_t at, uint64_t symbols, Hits& hits) const {
    for (size_t length : lengths_) {
        uint32_t bucket = bucketOf(HashFilter::hashOf(symbols, length));
        for (uint32_t i = starts_[bucket]; i < starts_[bucket + 1]; i++) {
            const Candidate& candidate = candidates_[i];
            if ((symbols & candidate.mask) != candidate.symbols || hits.has(candidate.name))
                continue;
            const std::string& name = names_[candidate.name];
            // The filters' positions may lie past the text's end.
            if (candidate.offset > at || at - candidate.offset + name.size() > text.size())
                continue;
            size_t begin = at - candidate.offset;
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
    // Which pairs of bytes, in lower case, the text has.
    std::vector<bool> pairs(1U << 16);
    for (size_t at = 0; at + 1 < text.size(); at++) pairs[shortKey(text.substr(at, 2))] = true;
    for (uint32_t number : twos_)
        if (pairs[shortKey(names_[number])]) hits.add(number);
}

}  // namespace bracken
