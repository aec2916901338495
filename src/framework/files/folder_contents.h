#pragma once

#include <sys/stat.h>

#include <memory>
#include <string>
#include <vector>

namespace bracken {

// Whether the error of a system call says that there is nothing at a path, rather than that it
// can't be reached.
bool isAbsence(int error);

// What stood in a folder when it was read.
struct FolderContents {
    struct Entry {
        std::string name;
        bool directory;
        // A regular file, and no link to one.
        bool file;
        bool link;
    };

    // Null for what can't be listed.
    static std::shared_ptr<const FolderContents> read(const std::string& path);
    // Whether that is still the folder at `path`, with these contents for sure.
    bool holdFor(const std::string& path) const;

    dev_t device;
    ino_t inode;
    struct timespec changed;
    // Whether a later change is sure to show in the folder's time of change.
    bool settled;
    // In byte order of names; without dangling links.
    std::vector<Entry> entries;
};

}  // namespace bracken
