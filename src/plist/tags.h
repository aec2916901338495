#pragma once

#include <string_view>

#include "framework/text/text.h"

namespace bracken {

// Whether keys of this type tag have a node of their own in place of a value.
inline bool isContainer(std::string_view tag) {
    return equal(tag, "dict") || equal(tag, "array");
}

}  // namespace bracken
