#pragma once

#include <string>
#include <string_view>

namespace bracken::plutil {

// XML as the program writes it, made such that the library reads it fast and by our understanding
// of it: elements without attributes and text, nothing else; an ampersand that begins no entity
// stands for itself. Raises std::runtime_error for what is nested deeper, or has more
// elements, than the library can take.
std::string wellFormed(std::string_view xml);

}  // namespace bracken::plutil
