#include "tools/bracken-scan/glob.h"

#include <algorithm>
#include <array>

namespace bracken::cli {

namespace {

// The bytes that count as one of the text: itself, and the same letter in the other case.
using Spellings = std::array<char, 2>;

Spellings spellings(char byte, LetterCase letterCase) {
    const char lower = static_cast<char>(byte | 0x20);
    const bool letter = lower >= 'a' && lower <= 'z';
    const bool both = letter && letterCase == LetterCase::disregarded;
    return {byte, both ? static_cast<char>(byte ^ 0x20) : byte};
}

bool isBetween(char first, Spellings byte, char last) {
    const auto number = [](char it) { return static_cast<unsigned char>(it); };
    return std::any_of(byte.begin(), byte.end(), [&](char spelling) {
        return number(first) <= number(spelling) && number(spelling) <= number(last);
    });
}

// What stands between [ and ], at the start of `pattern`; npos for the length where there is no ].
size_t setLength(std::string_view pattern) {
    size_t first = 1;
    if (first < pattern.size() && (pattern[first] == '!' || pattern[first] == '^')) first++;
    const size_t end = pattern.find(']', first + 1);
    return end == pattern.npos ? pattern.npos : end + 1;
}

bool setHas(std::string_view set, Spellings byte) {
    const bool negated = set.starts_with('!') || set.starts_with('^');
    if (negated) set.remove_prefix(1);
    bool has = false;
    while (!set.empty()) {
        const bool range = set.size() >= 3 && set[1] == '-';
        const char last = range ? set[2] : set[0];
        has = has || isBetween(set[0], byte, last);
        set.remove_prefix(range ? 3 : 1);
    }
    return has != negated;
}

// Bytes of the pattern's first element, which is no star, if it covers the byte; else 0.
size_t covers(std::string_view pattern, Spellings byte) {
    if (pattern.starts_with('?')) return 1;
    if (pattern.starts_with('[')) {
        const size_t length = setLength(pattern);
        if (length != pattern.npos) return setHas(pattern.substr(1, length - 2), byte) ? length : 0;
    }
    return !pattern.empty() && isBetween(pattern[0], byte, pattern[0]) ? 1 : 0;
}

}  // namespace

// Only the latest star need ever be tried again, so the time is that of pattern times text.
bool globMatches(std::string_view pattern, std::string_view text, LetterCase letterCase) {
    size_t at = 0;
    size_t begin = 0;
    size_t afterStar = pattern.npos;
    size_t starText = 0;
    while (begin < text.size()) {
        if (at < pattern.size() && pattern[at] == '*') {
            afterStar = ++at;
            starText = begin;
        } else if (const size_t length =
                       covers(pattern.substr(at), spellings(text[begin], letterCase))) {
            at += length;
            begin++;
        } else if (afterStar != pattern.npos) {
            at = afterStar;
            begin = ++starText;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', at) == pattern.npos;
}

bool isGlob(std::string_view pattern) {
    return pattern.find_first_of("*?[") != pattern.npos;
}

}  // namespace bracken::cli
