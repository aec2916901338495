#include "tests/support/system_calls.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>

namespace bracken::test {

static std::atomic<const SystemCalls*> living{nullptr};

SystemCalls::SystemCalls(Fails fails, size_t mostBytes)
    : fails(std::move(fails)), mostBytes(mostBytes) {
    living = this;
}

SystemCalls::~SystemCalls() {
    living = nullptr;
}

static bool fails(const char* name) {
    const SystemCalls* calls = living;
    const int before = errno;
    if (calls != nullptr && calls->fails(name)) return true;
    errno = before;
    return false;
}

static size_t atMost(size_t count) {
    const SystemCalls* calls = living;
    return calls == nullptr ? count : std::min(count, calls->mostBytes);
}

// The system's own function of that name.
template <class Function>
static Function* own(Function* /*same*/, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace bracken::test

using namespace bracken::test;

extern "C" {

int openat(int folder, const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return fails("openat") ? -1 : own(openat, "openat")(folder, path, flags, mode);
}

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return fails("open") ? -1 : own(open, "open")(path, flags, mode);
}

dirent* readdir(DIR* folder) {
    return fails("readdir") ? nullptr : own(readdir, "readdir")(folder);
}

ssize_t read(int descriptor, void* bytes, size_t count) {
    return fails("read") ? -1 : own(read, "read")(descriptor, bytes, atMost(count));
}

ssize_t preadv2(int descriptor, const iovec* parts, int /*count*/, off_t offset, int flags) {
    const iovec first{parts->iov_base, atMost(parts->iov_len)};
    return fails("preadv2") ? -1 : own(preadv2, "preadv2")(descriptor, &first, 1, offset, flags);
}

ssize_t write(int descriptor, const void* bytes, size_t count) {
    return fails("write") ? -1 : own(write, "write")(descriptor, bytes, atMost(count));
}

int fallocate(int descriptor, int mode, off_t offset, off_t size) {
    return fails("fallocate") ? -1 : own(fallocate, "fallocate")(descriptor, mode, offset, size);
}

int fchmod(int descriptor, mode_t mode) noexcept {
    return fails("fchmod") ? -1 : own(fchmod, "fchmod")(descriptor, mode);
}

int fsync(int descriptor) {
    return fails("fsync") ? -1 : own(fsync, "fsync")(descriptor);
}

int flock(int descriptor, int operation) noexcept {
    return fails("flock") ? -1 : own(flock, "flock")(descriptor, operation);
}

int rename(const char* from, const char* to) noexcept {
    return fails("rename") ? -1 : own(rename, "rename")(from, to);
}

// Of openat2, which has no function of its own, and whatever else; a futex takes six words.
long syscall(long number, ...) noexcept {
    va_list rest;
    va_start(rest, number);
    long words[6];
    for (long& word : words) word = va_arg(rest, long);
    va_end(rest);
    if (number == SYS_openat2 && fails("openat2")) return -1;
    return own(syscall, "syscall")(number, words[0], words[1], words[2], words[3], words[4],
                                   words[5]);
}

}  // extern "C"
