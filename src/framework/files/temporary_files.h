#pragma once

#include <optional>
#include <string>

#include "framework/files/file_calls.h"

namespace bracken {

// The temporary files in the folders of the targets of saves. A writer that is killed leaves its
// file, with whatever secrets it holds. So each writer locks its file for as long as it has the
// name: one that can be locked has no writer any more, in whatever container or on whatever machine
// that ran, where the number of a process would prove nothing. On a file system without locks a
// left-over can't be distinguished from a file in use, and none is removed.

struct TemporaryFile {
    std::string path;
    // For writing. Closing it unlocks the file.
    Descriptor file;
};

// Makes and locks a new one. None, with errno set, if the folder allows none.
std::optional<TemporaryFile> makeTemporary(const std::string& folder, mode_t mode);

// Removes those in the folder that have no writer. A failure is silent.
void removeLeftOvers(const std::string& folder);

}  // namespace bracken
