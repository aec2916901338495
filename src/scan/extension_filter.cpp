#include "scan/extension_filter.h"

#include "framework/text/text.h"

namespace bracken {

bool passesExtensions(std::string_view fileName, std::string_view extensions) {
    std::string_view last = fileName.substr(fileName.rfind('.') + 1);
    return InStr(0, extensions, last) > 0 || extensions.empty();
}

}  // namespace bracken
