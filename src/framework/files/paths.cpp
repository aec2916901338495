#include "framework/files/paths.h"

namespace bracken {

std::string trimmedPath(std::string path) {
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

std::string parentPath(const std::string& path) {
    const size_t slash = path.rfind('/');
    return trimmedPath(path.substr(0, slash == 0 ? 1 : slash));
}

std::string lastComponent(const std::string& path) {
    return path == "/" ? path : path.substr(path.rfind('/') + 1);
}

std::string joinPath(const std::string& folder, std::string_view name) {
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    path += folder;
    if (path.back() != '/') path += '/';
    path += name;
    return path;
}

}  // namespace bracken
