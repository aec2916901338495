#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace bracken {

// Operations on text (text.cpp), and between text and numbers (numbers.cpp). Text is bytes with no
// encoding attached; positions and lengths count bytes. "Ignoring case" means that of the ASCII
// letters only.

// What ends a line in texts that the program writes or shows.
inline constexpr const char* EndOfLine = "\n";

// 1-based position of the first `find` in `source` at or after `start`, ignoring case; 0 if there
// is none. A start of 0 or 1 searches from the beginning. An empty `find` is never found.
int64_t InStr(int64_t start, std::string_view source, std::string_view find);
int64_t InStr(std::string_view source, std::string_view find);

// The n-th field of `source` between separators, counted from 1; "" if there is no such field.
// Separators are compared ignoring case.
std::string NthField(std::string_view source, std::string_view separator, int64_t n);
// Number of separators plus one; 0 for an empty source.
int64_t CountFields(std::string_view source, std::string_view separator);
// All fields, empty ones kept; an empty source has none.
std::vector<std::string> Split(std::string_view source, std::string_view separator);

// A count is clamped to 0 and the text's length.
std::string Left(std::string_view source, int64_t count);
std::string Right(std::string_view source, int64_t count);
// From the 1-based `start`; a start below 1 counts as 1.
std::string Mid(std::string_view source, int64_t start);
std::string Mid(std::string_view source, int64_t start, int64_t count);
int64_t Len(std::string_view source);

std::string Lowercase(std::string_view source);
// Replaces every `find`, ignoring case, from left to right by `with`; an empty `find` changes
// nothing.
std::string ReplaceAll(std::string_view source, std::string_view find, std::string_view with);

// Equality ignoring case: what `=` means for text throughout the program.
bool equal(std::string_view a, std::string_view b);

// Decimal text. A double gives the shortest text that reads back as the same value, with no
// exponent for whole numbers below 1e15. Infinity gives the end of the range, NaN gives "0".
std::string Str(int64_t value);
std::string Str(int value);
std::string Str(double value);
// The value of a text that is as a whole a decimal number (sign, digits, point, exponent) or "&h"
// and hexadecimal digits; 0 for anything else. Saturated, so that Str's text of it is a number.
double CDbl(std::string_view text);
// The value of the longest decimal number at the text's start, after leading blanks; else 0.
double Val(std::string_view text);
// Whether the whole text is a decimal number.
bool IsNumeric(std::string_view text);
// Upper-case hexadecimal with no leading zeros.
std::string Hex(int64_t value);
// The value rounded to a whole number, half away from zero, with a leading minus when negative: the
// format "-#", the only one in use. Zero gives "0".
std::string Format(double value, std::string_view format);

// Truncation toward zero, saturated at the ends of the range; NaN gives 0. The one conversion from
// double to a 32-bit number in the program.
int32_t toInt32(double value);

}  // namespace bracken
