#pragma once

#include <cstddef>
#include <string_view>

namespace bracken::plutil {

// What is converted in less than a second, with the library's recursion on 1 MB of stack. Settings
// are a thousand times smaller.
constexpr int maxDepth = 1000;
// Of XML. To make the binary form the library compares each with a share of the others.
constexpr int maxElements = 100'000;
// Of a property list as XML.
constexpr size_t maxBytes = size_t{32} << 20;

// Raises std::runtime_error for a property list in binary form that is broken, or too deep or too
// large as XML. Its values may share their parts, so that a few bytes make any size.
void checkExpansion(std::string_view binary);

}  // namespace bracken::plutil
