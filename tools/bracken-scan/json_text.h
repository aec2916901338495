#pragma once

#include <string>
#include <string_view>

namespace bracken::cli {

// The bytes as a value of JSON: a string if they are UTF-8, else {"bytes": base64}.
std::string jsonText(std::string_view bytes);

}  // namespace bracken::cli
