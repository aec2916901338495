#pragma once

#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "framework/files/entered_folders.h"

namespace bracken {

// What a folder held when it was read.
struct FolderContents {
    struct Entry {
        std::string name;
        bool directory;
        // A regular file, and no link to one.
        bool file;
        bool link;
        // Why its type, or that of a link's target, can't be asked: an error number, else 0.
        int error;
    };

    // Null if there is no folder. UnreadableException for one that can't be listed to its end.
    static std::shared_ptr<const FolderContents> read(const std::string& path);
    // Whether this is surely what the folder at `path` still holds.
    bool isCurrent(const std::string& path) const;

    FolderIdentity identity;
    struct timespec changeTime;
    // Whether any later change gives the folder another time of change.
    bool showsLaterChanges;
    // In byte order of names; without dangling links.
    std::vector<Entry> entries;
};

}  // namespace bracken
