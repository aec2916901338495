#include "tools/bracken-scan/source_filter.h"

#include <algorithm>

#include "framework/text/text.h"
#include "tools/bracken-scan/glob.h"

namespace bracken::cli {

namespace {

std::string_view nameOf(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

}  // namespace

bool SourceFilter::excludes(std::string_view path) const {
    return std::any_of(excludes_.begin(), excludes_.end(), [&](const std::string& glob) {
        return globMatches(glob, nameOf(path)) || globMatches(glob, path);
    });
}

bool SourceFilter::keepsOut(std::string_view path) const {
    return !passesExtensions(nameOf(path)) || excludes(path);
}

bool SourceFilter::passesExtensions(std::string_view name) const {
    if (extensions_.empty()) return true;
    const size_t dot = name.rfind('.');
    return dot != name.npos &&
           std::any_of(extensions_.begin(), extensions_.end(), [&](const std::string& extension) {
               return equal(name.substr(dot + 1), extension);
           });
}

}  // namespace bracken::cli
