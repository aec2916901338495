#include "tools/plutil/xml.h"

#include <algorithm>
#include <regex>
#include <string>

namespace bracken::plutil {

namespace {

// Bytes of the character at the start of the text, 0 if that is no UTF-8: overlong forms,
// surrogates and numbers above 0x10FFFF are none.
size_t characterLength(std::string_view text) {
    auto byte = [&](size_t at) {
        return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
    };
    auto follows = [&](size_t at) { return (byte(at) & 0xC0) == 0x80; };
    unsigned first = byte(0);
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return follows(1) ? 2 : 0;
    if (first >= 0xE0 && first < 0xF0) {
        bool overlong = first == 0xE0 && byte(1) < 0xA0;
        bool surrogate = first == 0xED && byte(1) >= 0xA0;
        return follows(1) && follows(2) && !overlong && !surrogate ? 3 : 0;
    }
    bool overlong = first == 0xF0 && byte(1) < 0x90;
    bool above = first > 0xF4 || (first == 0xF4 && byte(1) >= 0x90);
    bool four = first >= 0xF0 && follows(1) && follows(2) && follows(3);
    return four && !overlong && !above ? 4 : 0;
}

bool isUtf8(std::string_view text) {
    for (size_t at = 0; at < text.size();) {
        size_t length = characterLength(text.substr(at));
        if (length == 0) return false;
        at += length;
    }
    return true;
}

bool isWhole(const std::string& number) {
    bool negative = number.starts_with('-');
    std::string digits = number.substr(negative ? 1 : 0);
    if (digits.empty() || digits.find_first_not_of("0123456789") != digits.npos) return false;
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    std::string largest = negative ? "9223372036854775808" : "18446744073709551615";
    return digits.size() < largest.size() || (digits.size() == largest.size() && digits <= largest);
}

bool isBase64(std::string text) {
    text.erase(std::remove_if(text.begin(), text.end(),
                              [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }),
               text.end());
    size_t end = text.find('=');
    size_t padding = end == text.npos ? 0 : text.size() - end;
    auto isDigit = [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
               c == '+' || c == '/';
    };
    return text.size() % 4 == 0 && padding <= 2 &&
           std::all_of(text.begin(), text.end() - static_cast<ptrdiff_t>(padding), isDigit) &&
           text.find_first_not_of('=', std::min(end, text.size())) == text.npos;
}

bool isMoment(const std::string& text) {
    static const std::regex moment(
        "[0-9]{4}-(0[1-9]|1[0-2])-(0[1-9]|[12][0-9]|3[01])T([01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9]"
        "Z");
    return std::regex_match(text, moment);
}

// Whether the test holds for the content of every element of that tag.
template <class Test>
bool all(std::string_view xml, std::string_view tag, const Test& test) {
    for (size_t at = xml.find(tag); at != xml.npos; at = xml.find(tag, at)) {
        at += tag.size();
        size_t end = std::min(xml.find('<', at), xml.size());
        if (!test(std::string(xml.substr(at, end - at)))) return false;
    }
    return true;
}

}  // namespace

bool isRepresentable(std::string_view xml) {
    return isUtf8(xml) && all(xml, "<integer>", isWhole) && all(xml, "<data>", isBase64) &&
           all(xml, "<date>", isMoment);
}

}  // namespace bracken::plutil
