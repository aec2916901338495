#pragma once

#include <cstddef>

namespace bracken::plutil {

// What is converted in less than a second, with the library's recursion on 1 MB of stack. Settings
// are a thousand times smaller.
constexpr int maxDepth = 1000;
// Of XML, which the library compares each with a share of the others to make the binary form.
constexpr int maxElements = 100'000;
// Of a property list as XML, see expansion.h.
constexpr size_t maxBytes = size_t{32} << 20;

}  // namespace bracken::plutil
