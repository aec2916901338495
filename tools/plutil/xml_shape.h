#pragma once

#include <string>
#include <string_view>

namespace bracken::plutil {

// The XML that the library writes, brought into the shape that the program's line reader takes:
// control characters in strings and keys become numeric references, so that each stays on its line,
// and an empty root gets two tags.
std::string toReadersShape(std::string_view xml);

// XML as the program writes it, made well-formed: an ampersand that begins no entity is encoded.
std::string wellFormed(std::string_view xml);

}  // namespace bracken::plutil
