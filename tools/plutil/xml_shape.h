#pragma once

#include <string>
#include <string_view>

namespace bracken::plutil {

// The XML that the library writes, brought into the shape that the program's line reader takes: in
// strings and keys an ampersand stands as it is unless an entity would come of it, and line ends
// become numeric references, so that each text stays on its line; an empty root gets two tags.
std::string toReadersShape(std::string_view xml);

}  // namespace bracken::plutil
