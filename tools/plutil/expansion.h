#pragma once

#include <string_view>

namespace bracken::plutil {

// Raises std::runtime_error for a property list in binary form that is broken, or too deep or too
// large as XML. Values may share their parts there, so that a few bytes make any size.
void checkExpansion(std::string_view binary);

}  // namespace bracken::plutil
