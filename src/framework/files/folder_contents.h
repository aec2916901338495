#pragma once

#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "framework/files/entered_folders.h"

namespace bracken {

// What stood in a folder when it was read.
struct FolderContents {
    struct Entry {
        std::string name;
        bool directory;
        // A regular file, and no link to one.
        bool file;
        bool link;
        // Error number of why its type, or that of a link's target, can't be asked; 0 otherwise.
        int error;
    };

    // Null where no folder is. UnreadableException for one that can't be listed to its end.
    static std::shared_ptr<const FolderContents> read(const std::string& path);
    // Whether that is still the folder at `path`, with these contents for sure.
    bool isCurrent(const std::string& path) const;

    FolderIdentity identity;
    struct timespec changed;
    // Whether a later change is sure to show in the folder's time of change.
    bool settled;
    // In byte order of names; without dangling links.
    std::vector<Entry> entries;
};

}  // namespace bracken
