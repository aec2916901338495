#pragma once

#include <string>
#include <string_view>

namespace bracken {

// Arithmetic on absolute POSIX paths; nothing here looks at the disk.

// Without slashes at its end, except the root's.
inline std::string trimmedPath(std::string path) {
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

// The path of the folder that holds it; the root is its own parent.
inline std::string parentPath(const std::string& path) {
    size_t slash = path.rfind('/');
    return trimmedPath(path.substr(0, slash == 0 ? 1 : slash));
}

// The last component; "/" for the root.
inline std::string lastComponent(const std::string& path) {
    return path == "/" ? path : path.substr(path.rfind('/') + 1);
}

inline std::string joinPath(const std::string& folder, std::string_view name) {
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    path += folder;
    if (path.back() != '/') path += '/';
    path += name;
    return path;
}

}  // namespace bracken
