#pragma once

#include <string_view>

namespace bracken::plutil {

// Whether XML as the program writes it can be turned into binary form and back with no value
// changed: that form knows text in Unicode only, whole numbers of 64 bits, and data that is bytes.
bool isRepresentable(std::string_view xml);

}  // namespace bracken::plutil
