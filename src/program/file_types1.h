#pragma once

#include <string>

namespace bracken {

// A kind of file that the desktop may know.
struct FileType {
    std::string Name;
    std::string Extensions;
    std::string MacType;
    std::string MacCreator;
};

// The program's file types.
struct FileTypes1 {
    FileType CSV{"CSV", "csv", "", ""};
};

}  // namespace bracken
