#pragma once

#include <string_view>

namespace bracken::cli {

// Of ASCII letters.
enum class LetterCase { regarded, disregarded };

// Whether the pattern covers the whole text, byte by byte: * is any bytes, none too, ? any one,
// [abc] and [a-c] one of these, [!abc] and [^abc] one that is none of them. A ] that comes first
// is one of the set, a [ without an end stands for itself, as does every other byte, \ too.
bool globMatches(std::string_view pattern, std::string_view text,
                 LetterCase letterCase = LetterCase::regarded);

// Whether it holds anything that stands for other than itself.
bool isGlob(std::string_view pattern);

}  // namespace bracken::cli
