#pragma once

#include <cstddef>
#include <string_view>

namespace bracken::plutil {

// A character written by its name or number.
struct Entity {
    // Bytes after the ampersand, the semicolon included; 0 for none.
    size_t length = 0;
    char32_t character = 0;
};

// The entity that an ampersand ahead of the text begins. A number that is no character makes none.
Entity entityAfterAmpersand(std::string_view text);

}  // namespace bracken::plutil
