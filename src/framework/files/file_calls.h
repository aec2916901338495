#pragma once

#include <sys/types.h>

#include <cstddef>

namespace bracken {

// The system calls on which saving rests, with the meaning and errno of their namesakes, so that
// a test can let each of them fail.
class FileCalls {
  public:
    virtual ~FileCalls() = default;
    virtual int open(const char* path, int flags, mode_t mode);
    virtual ssize_t write(int descriptor, const void* bytes, size_t count);
    // Without changing the file's size.
    virtual int fallocate(int descriptor, off_t size);
    virtual int fchmod(int descriptor, mode_t mode);
    virtual int fsync(int descriptor);
    // Exclusively and without waiting, for as long as the descriptor or a duplicate is open.
    virtual int lock(int descriptor);
    virtual int rename(const char* from, const char* to);

    // The real ones.
    static FileCalls& system();
};

}  // namespace bracken
