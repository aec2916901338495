#pragma once

#include <string>
#include <string_view>

namespace bracken {

// "<" and ">" to "&lt;" and "&gt;" and back. Nothing else is encoded, not even the ampersand, and
// the entities are decoded in lower case only.
std::string encodeBrackets(std::string_view text);
std::string decodeBrackets(std::string_view text);

// Whether keys of this type tag have a node of their own in place of a value.
bool isContainer(std::string_view tag);

}  // namespace bracken
