#pragma once

#include <plist/plist.h>

namespace bracken::plutil {

// Makes the identifiers of a tree that was read from XML what they were in binary form. XML knows
// none: there they are dictionaries with one key, and the library leaves them so. The root stays
// what it is.
void restoreIdentifiers(plist_t root);

}  // namespace bracken::plutil
