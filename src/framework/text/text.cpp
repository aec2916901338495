#include "framework/text/text.h"

#include <algorithm>
#include <cstring>

#include "framework/text/ascii.h"

namespace bracken {

namespace {

constexpr size_t npos = std::string_view::npos;

bool equalBytes(const char* a, const char* b, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        if (asciiLower(a[i]) != asciiLower(b[i])) return false;
    }
    return true;
}

// The first position of a byte in [at, end); npos if there is none.
size_t findByte(std::string_view source, size_t at, size_t end, char byte) {
    const void* hit = std::memchr(source.data() + at, byte, end - at);
    return hit == nullptr ? npos
                          : static_cast<size_t>(static_cast<const char*>(hit) - source.data());
}

// Finds a byte in upper or lower case. The text is searched for both block by block, so that a case
// that never occurs does not cost a search to the end each time.
class ByteFinder {
  public:
    ByteFinder(std::string_view source, char byte)
        : source_(source), lower_(asciiLower(byte)), upper_(asciiUpper(lower_)) {}

    size_t next(size_t at) const {
        constexpr size_t blockSize = 4096;
        while (at < source_.size()) {
            size_t end = std::min(at + blockSize, source_.size());
            size_t first = findByte(source_, at, end, lower_);
            if (upper_ != lower_)
                first = std::min(first, findByte(source_, at, std::min(first, end), upper_));
            if (first != npos) return first;
            at = end;
        }
        return npos;
    }

  private:
    std::string_view source_;
    char lower_;
    char upper_;
};

// Finds a text ignoring case, at ascending positions.
class Finder {
  public:
    Finder(std::string_view source, std::string_view find)
        : source_(source), find_(find), bytes_(source, find.empty() ? '\0' : find[0]) {}

    // Zero-based; npos for none.
    size_t next(size_t at) {
        if (find_.empty() || find_.size() > source_.size()) return npos;
        size_t last = source_.size() - find_.size();
        for (at = bytes_.next(at); at <= last; at = bytes_.next(at + 1)) {
            if (equalBytes(source_.data() + at, find_.data(), find_.size())) return at;
        }
        return npos;
    }

  private:
    std::string_view source_;
    std::string_view find_;
    ByteFinder bytes_;
};

size_t clampCount(std::string_view source, int64_t count) {
    return static_cast<size_t>(std::clamp<int64_t>(count, 0, Len(source)));
}

}  // namespace

int64_t InStr(int64_t start, std::string_view source, std::string_view find) {
    size_t at = start < 1 ? 0 : static_cast<size_t>(start - 1);
    size_t position = Finder(source, find).next(at);
    return position == npos ? 0 : static_cast<int64_t>(position) + 1;
}

int64_t InStr(std::string_view source, std::string_view find) {
    return InStr(1, source, find);
}

std::string NthField(std::string_view source, std::string_view separator, int64_t n) {
    if (n < 1) return "";
    Finder finder(source, separator);
    size_t start = 0;
    size_t end = finder.next(0);
    for (; n > 1; --n) {
        if (end == npos) return "";
        start = end + separator.size();
        end = finder.next(start);
    }
    return std::string(source.substr(start, end == npos ? npos : end - start));
}

int64_t CountFields(std::string_view source, std::string_view separator) {
    if (source.empty()) return 0;
    Finder finder(source, separator);
    int64_t count = 1;
    for (size_t at = finder.next(0); at != npos; at = finder.next(at + separator.size())) ++count;
    return count;
}

std::vector<std::string> Split(std::string_view source, std::string_view separator) {
    std::vector<std::string> fields;
    if (source.empty()) return fields;
    Finder finder(source, separator);
    size_t start = 0;
    for (size_t at = finder.next(0); at != npos; at = finder.next(start)) {
        fields.emplace_back(source.substr(start, at - start));
        start = at + separator.size();
    }
    fields.emplace_back(source.substr(start));
    return fields;
}

std::string Left(std::string_view source, int64_t count) {
    return std::string(source.substr(0, clampCount(source, count)));
}

std::string Right(std::string_view source, int64_t count) {
    return std::string(source.substr(source.size() - clampCount(source, count)));
}

std::string Mid(std::string_view source, int64_t start) {
    return Mid(source, start, Len(source));
}

std::string Mid(std::string_view source, int64_t start, int64_t count) {
    if (start > Len(source)) return "";
    std::string_view rest = source.substr(start < 1 ? 0 : static_cast<size_t>(start - 1));
    return Left(rest, count);
}

int64_t Len(std::string_view source) {
    return static_cast<int64_t>(source.size());
}

std::string Lowercase(std::string_view source) {
    std::string result(source);
    std::transform(result.begin(), result.end(), result.begin(), asciiLower);
    return result;
}

std::string ReplaceAll(std::string_view source, std::string_view find, std::string_view with) {
    Finder finder(source, find);
    std::string result;
    size_t start = 0;
    for (size_t at = finder.next(0); at != npos; at = finder.next(start)) {
        result.append(source.substr(start, at - start)).append(with);
        start = at + find.size();
    }
    return result.append(source.substr(start));
}

bool equal(std::string_view a, std::string_view b) {
    return a.size() == b.size() && equalBytes(a.data(), b.data(), a.size());
}

}  // namespace bracken
