#pragma once

#include <string>
#include <string_view>

namespace bracken {

// "<" and ">" to "&lt;" and "&gt;" and back. Nothing else is encoded, the ampersand neither, and
// the entities are known in lower case only.
std::string encodeBrackets(std::string_view text);
std::string decodeBrackets(std::string_view text);

}  // namespace bracken
