#pragma once

#include <string>
#include <string_view>

namespace bracken {

// Whether a file of that name is to be searched: its last dot-separated field, the whole name where
// it has no dot, must lie somewhere inside the extension list, which is not split at its commas; an
// empty list lets every file through. So with "php,cgi" also a.c and a.h pass.
bool passesExtensions(std::string_view fileName, std::string_view extensions);

}  // namespace bracken
