#pragma once

#include <string>

namespace bracken::plutil {

// Whether these bytes are a property list in binary form.
bool isBinary(const std::string& bytes);

// A property list, given in binary form or as XML, in the form asked for. Raises
// std::runtime_error for bytes that are no property list.
std::string toXml(const std::string& bytes);
std::string toBinary(const std::string& bytes);

}  // namespace bracken::plutil
