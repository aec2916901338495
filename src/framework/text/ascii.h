#pragma once

#include <array>
#include <cstddef>

namespace bracken {

namespace detail {

inline constexpr std::array<char, 256> lowerCase = [] {
    std::array<char, 256> table{};
    for (size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<char>(i >= 'A' && i <= 'Z' ? i + ('a' - 'A') : i);
    return table;
}();

}  // namespace detail

// A byte with the case of an ASCII letter changed; other bytes stay. Letter case means this
// throughout the program.
constexpr char asciiLower(char c) {
    return detail::lowerCase[static_cast<unsigned char>(c)];
}

constexpr char asciiUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

}  // namespace bracken
