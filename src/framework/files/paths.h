#pragma once

#include <string>
#include <string_view>

namespace bracken {

// Arithmetic on absolute POSIX paths; nothing here looks at the disk.

// Without slashes at its end, save the root's.
std::string trimmedPath(std::string path);
// The folder that holds it; the root is its own.
std::string parentPath(const std::string& path);
// The last component; "/" for the root.
std::string lastComponent(const std::string& path);
std::string joinPath(const std::string& folder, std::string_view name);

}  // namespace bracken
