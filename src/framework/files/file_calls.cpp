#include "framework/files/file_calls.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

namespace bracken {

int FileCalls::open(const char* path, int flags, mode_t mode) {
    return ::open(path, flags | O_CLOEXEC, mode);
}

ssize_t FileCalls::write(int descriptor, const void* bytes, size_t count) {
    return ::write(descriptor, bytes, count);
}

int FileCalls::fallocate(int descriptor, off_t size) {
    return ::fallocate(descriptor, FALLOC_FL_KEEP_SIZE, 0, size);
}

int FileCalls::fchmod(int descriptor, mode_t mode) {
    return ::fchmod(descriptor, mode);
}

int FileCalls::fsync(int descriptor) {
    return ::fsync(descriptor);
}

int FileCalls::lock(int descriptor) {
    return ::flock(descriptor, LOCK_EX | LOCK_NB);
}

int FileCalls::rename(const char* from, const char* to) {
    return ::rename(from, to);
}

FileCalls& FileCalls::system() {
    static FileCalls calls;
    return calls;
}

}  // namespace bracken
