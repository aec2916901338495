#include "framework/files/file_calls.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

namespace bracken {

ssize_t readSome(int descriptor, char* bytes, size_t count) {
    return uninterrupted([&] { return read(descriptor, bytes, count); });
}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
}

Descriptor::~Descriptor() {
    int error = errno;
    close();
    errno = error;
}

bool Descriptor::close() {
    return !isOpen() || ::close(std::exchange(number_, -1)) == 0;
}

Descriptor openFolder(const std::string& path) {
    return Descriptor(open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

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

bool FileCalls::writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        ssize_t written =
            uninterrupted([&] { return write(descriptor, bytes.data(), bytes.size()); });
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<size_t>(written));
    }
    return true;
}

FileCalls& FileCalls::system() {
    static FileCalls calls;
    return calls;
}

}  // namespace bracken
