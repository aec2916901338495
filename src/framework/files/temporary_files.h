#pragma once

#include <string>

#include "framework/files/file_calls.h"

namespace bracken {

// The temporary files beside the targets of saves. A writer that is killed leaves its file, with
// whatever secrets it holds. So each writer locks its file for as long as it has the name: one that
// can be locked has no writer any more, in whatever container or on whatever machine that ran,
// where the number of a process would prove nothing. On a file system without locks no left-over
// can be told from a file in use, and none is removed.

// The name of a new one. Another process may have one of that name.
std::string temporaryName();

// Locks the file at `path`, just made and open as `descriptor`, until that is closed. False if it
// was taken for a left-over in between: the name is then not the caller's any more.
bool claimTemporary(const std::string& path, int descriptor, FileCalls& calls);

// Removes those in the folder that have no writer. What can't be removed stays, in silence.
void removeLeftOvers(const std::string& folder, FileCalls& calls);

}  // namespace bracken
