#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>

#include "framework/text/ascii.h"
#include "framework/text/text.h"

namespace bracken {

namespace {

// The longest text of a double without an exponent is some 310 digits.
constexpr size_t maxNumberLength = 400;

bool isDigit(std::string_view text, size_t at) {
    return at < text.size() && text[at] >= '0' && text[at] <= '9';
}

size_t skipDigits(std::string_view text, size_t at) {
    while (isDigit(text, at)) ++at;
    return at;
}

// Position after an exponent at `at`, or `at` if there is none.
size_t skipExponent(std::string_view text, size_t at) {
    if (at >= text.size() || (text[at] != 'e' && text[at] != 'E')) return at;
    size_t digits = at + 1;
    if (digits < text.size() && (text[digits] == '+' || text[digits] == '-')) ++digits;
    return isDigit(text, digits) ? skipDigits(text, digits) : at;
}

// Length of the longest decimal number at the start of the text: sign, digits, point, exponent.
size_t numberLength(std::string_view text) {
    size_t at = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
    size_t whole = at;
    at = skipDigits(text, at);
    size_t digits = at - whole;
    if (at < text.size() && text[at] == '.' && (digits > 0 || isDigit(text, at + 1))) {
        size_t end = skipDigits(text, at + 1);
        digits += end - at - 1;
        at = end;
    }
    return digits == 0 ? 0 : skipExponent(text, at);
}

constexpr double maxDouble = std::numeric_limits<double>::max();

// The value of a text that is a decimal number.
double parseNumber(std::string_view text) {
    if (text[0] == '+') text.remove_prefix(1);
    double value = 0;
    std::errc error = std::from_chars(text.data(), text.data() + text.size(), value).ec;
    if (error == std::errc()) return value;
    // Too large or too small: a stream gives the end of the range.
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    stream >> value;
    return value;
}

double parseHexadecimal(std::string_view digits) {
    double value = 0;
    for (char c : digits) {
        int digit = 0;
        if (std::from_chars(&c, &c + 1, digit, 16).ec != std::errc()) return 0;
        value = std::min(value * 16 + digit, maxDouble);
    }
    return value;
}

// The nearest value that has a decimal text: NaN and infinity have none.
double clampToFinite(double value) {
    return std::isnan(value) ? 0 : std::clamp(value, -maxDouble, maxDouble);
}

template <class T, class... Form>
std::string toText(T value, Form... form) {
    char buffer[maxNumberLength];
    return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value, form...).ptr);
}

}  // namespace

std::string Str(int64_t value) {
    return toText(value);
}

std::string Str(int value) {
    return toText(value);
}

std::string Str(double value) {
    value = clampToFinite(value);
    bool plain = std::trunc(value) == value && std::abs(value) < 1e15;
    return plain ? toText(value, std::chars_format::fixed) : toText(value);
}

double CDbl(std::string_view text) {
    if (equal(text.substr(0, 2), "&h")) return parseHexadecimal(text.substr(2));
    return IsNumeric(text) ? parseNumber(text) : 0;
}

double Val(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    size_t length = numberLength(text);
    return length == 0 ? 0 : parseNumber(text.substr(0, length));
}

bool IsNumeric(std::string_view text) {
    return !text.empty() && numberLength(text) == text.size();
}

std::string Hex(int64_t value) {
    std::string digits = toText(static_cast<uint64_t>(value), 16);
    for (char& c : digits) c = asciiUpper(c);
    return digits;
}

std::string Format(double value, std::string_view /*format*/) {
    double rounded = std::round(clampToFinite(value));
    return rounded == 0 ? "0" : toText(rounded, std::chars_format::fixed);
}

int32_t toInt32(double value) {
    using Limits = std::numeric_limits<int32_t>;
    if (std::isnan(value)) return 0;
    if (value <= Limits::min()) return Limits::min();
    if (value >= Limits::max()) return Limits::max();
    return static_cast<int32_t>(value);
}

}  // namespace bracken
