#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace bracken::plutil {

// XML as the program writes it and as the library writes it. Each function is in a file of its own:
// is_representable.cpp, well_formed.cpp, readers_shape.cpp, entity.cpp.

// Whether XML as the program writes it can be turned into binary form and back with no value
// changed: that form knows only text in Unicode, whole numbers of 64 bits, and data that is bytes.
bool isRepresentable(std::string_view xml);

// XML as the program writes it, rewritten so that the library reads it fast and as we understand
// it: elements without attributes and text, nothing else; an ampersand that begins no entity is
// itself. Raises std::runtime_error for what is nested deeper, or has more elements, than limits.h
// allows.
std::string wellFormed(std::string_view xml);

// XML as the library writes it, in the shape that the program's line reader takes:
// - in strings and keys an ampersand is written as it is unless an entity would result;
// - line ends become numeric references, so that each text stays on its line;
// - an empty root gets two tags.
std::string toReadersShape(std::string_view xml);

// A character written by its name or number.
struct Entity {
    // Bytes after the ampersand, the semicolon included; 0 for none.
    size_t length = 0;
    char32_t character = 0;
};

// The entity that an ampersand before the text begins. A number that is no character makes none.
Entity entityAfterAmpersand(std::string_view text);

}  // namespace bracken::plutil
