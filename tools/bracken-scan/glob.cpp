#include "tools/bracken-scan/glob.h"

namespace bracken::cli {

namespace {

unsigned char numberOf(char byte) {
    return static_cast<unsigned char>(byte);
}

// What stands between [ and ], at the start of `pattern`; npos for the length where there is no ].
size_t setLength(std::string_view pattern) {
    size_t first = 1;
    if (first < pattern.size() && (pattern[first] == '!' || pattern[first] == '^')) first++;
    const size_t end = pattern.find(']', first + 1);
    return end == pattern.npos ? pattern.npos : end + 1;
}

bool setHas(std::string_view set, char byte) {
    const bool negated = set.starts_with('!') || set.starts_with('^');
    if (negated) set.remove_prefix(1);
    bool has = false;
    while (!set.empty()) {
        const bool range = set.size() >= 3 && set[1] == '-';
        const char last = range ? set[2] : set[0];
        has = has || (numberOf(set[0]) <= numberOf(byte) && numberOf(byte) <= numberOf(last));
        set.remove_prefix(range ? 3 : 1);
    }
    return has != negated;
}

// Bytes of the pattern's first element, which is no star, if it covers the byte; else 0.
size_t covers(std::string_view pattern, char byte) {
    if (pattern.starts_with('?')) return 1;
    if (pattern.starts_with('[')) {
        const size_t length = setLength(pattern);
        if (length != pattern.npos) return setHas(pattern.substr(1, length - 2), byte) ? length : 0;
    }
    return pattern.starts_with(byte) ? 1 : 0;
}

}  // namespace

// Only the latest star need ever be tried again, so the time is that of pattern times text.
bool globMatches(std::string_view pattern, std::string_view text) {
    size_t at = 0;
    size_t begin = 0;
    size_t afterStar = pattern.npos;
    size_t starText = 0;
    while (begin < text.size()) {
        if (at < pattern.size() && pattern[at] == '*') {
            afterStar = ++at;
            starText = begin;
        } else if (const size_t length = covers(pattern.substr(at), text[begin])) {
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
