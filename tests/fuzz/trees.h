#pragma once

#include <string>
#include <string_view>

#include "plist/plist_dict.h"

namespace bracken::fuzz {

// The text with the lines emptied that would hang the reader: those of control characters only.
std::string withoutEndlessLines(std::string_view text);

Ref<plistDict> read(std::string_view body, plist* document);

// The lines of the tree; "" for one with a key that has no value, which can't be written.
std::string written(const plistDict& node);

// The number of keys in the tree.
int keysIn(const plistDict& node);

// Aborts unless names, parents and numbers of keys are what they must be all over the tree.
void checkTree(const plistDict& node);

}  // namespace bracken::fuzz
