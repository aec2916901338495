#pragma once

#include <sys/types.h>

#include <cstddef>

#include "framework/files/file_calls.h"

namespace bracken {

// Calls that use what the system holds in memory and fail with EAGAIN where they would wait for the
// disk. Some systems don't know such calls and fail otherwise; some file systems always give
// EAGAIN.

// Opens for reading, with the meaning of openat.
Descriptor openCached(int folder, const char* path, int flags);
// Like readSome, and no more than lies in memory.
ssize_t readCached(int descriptor, char* bytes, size_t count);

}  // namespace bracken
