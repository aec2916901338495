#include "tests/scan/failing_system.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdarg>

#include "framework/threads/thread.h"

namespace bracken::test {

namespace {

std::atomic<FailingSystem*> armed{nullptr};
// What a thread has that executes no run.
const std::atomic<bool>* noRun = nullptr;

std::string pathOf(int descriptor, const char* path) {
    if (path != nullptr && (*path == '/' || descriptor == AT_FDCWD)) return path;
    std::array<char, PATH_MAX> target{};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = readlink(link.c_str(), target.data(), target.size());
    const std::string found(target.data(), static_cast<size_t>(std::max<ssize_t>(length, 0)));
    return path == nullptr ? found : found + "/" + path;
}

// The system's own function of that name.
template <class Function>
Function* own(Function* /*same*/, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

void FailingSystem::arm() {
    noRun = Thread::killedFlag();
    armed = this;
}

FailingSystem::~FailingSystem() {
    armed = nullptr;
}

bool FailingSystem::holds(int descriptor, const char* path) const {
    return (pathOf(descriptor, path) + "/").starts_with(below + "/");
}

bool FailingSystem::fails(const char* name, int descriptor, const char* path) {
    FailingSystem* system = armed;
    if (system == nullptr || system->call != name) return false;
    const bool byRun = Thread::killedFlag() != noRun;
    if (byRun != system->byRun.value_or(byRun)) return false;
    if (!system->holds(descriptor, path)) return false;
    const int number = ++system->made;
    if (number < system->nth || (number > system->nth && !system->lasting)) return false;
    errno = system->error;
    return true;
}

}  // namespace bracken::test

using bracken::test::armed;
using bracken::test::FailingSystem;
using bracken::test::own;

// The calls of reading, in place of the system's.
extern "C" {

int openat(int folder, const char* path, int flags, ...) {
    if (FailingSystem::fails("openat", folder, path)) return -1;
    return own(openat, "openat")(folder, path, flags);
}

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    if (FailingSystem::fails("open", AT_FDCWD, path)) return -1;
    return own(open, "open")(path, flags, mode);
}

DIR* opendir(const char* path) {
    if (FailingSystem::fails("opendir", AT_FDCWD, path)) return nullptr;
    return own(opendir, "opendir")(path);
}

dirent* readdir(DIR* folder) {
    if (FailingSystem::fails("readdir", dirfd(folder), nullptr)) return nullptr;
    dirent* entry = own(readdir, "readdir")(folder);
    const FailingSystem* system = armed;
    if (entry != nullptr && system != nullptr && system->untyped) entry->d_type = DT_UNKNOWN;
    return entry;
}

ssize_t preadv2(int descriptor, const iovec* parts, int count, off_t offset, int flags) {
    if (FailingSystem::fails("preadv2", descriptor, nullptr)) return -1;
    iovec first = *parts;
    if (armed != nullptr) first.iov_len = std::min(first.iov_len, size_t{4096});
    return own(preadv2, "preadv2")(descriptor, count == 1 ? &first : parts, count, offset, flags);
}

// Of openat2, which has no function of its own, and whatever else.
long syscall(long number, ...) noexcept {
    va_list rest;
    va_start(rest, number);
    std::array<long, 6> words{};
    for (long& word : words) word = va_arg(rest, long);
    va_end(rest);
    if (number == SYS_openat2) {
        const auto folder = static_cast<int>(words[0]);
        const auto* path = reinterpret_cast<const char*>(words[1]);
        if (FailingSystem::fails("openat2", folder, path)) return -1;
        const FailingSystem* system = armed;
        if (system != nullptr && system->cold && system->holds(folder, path)) {
            errno = EAGAIN;
            return -1;
        }
    }
    return own(syscall, "syscall")(number, words[0], words[1], words[2], words[3], words[4],
                                   words[5]);
}

ssize_t read(int descriptor, void* bytes, size_t count) {
    if (FailingSystem::fails("read", descriptor, nullptr)) return -1;
    if (armed != nullptr) count = std::min(count, size_t{4096});
    return own(read, "read")(descriptor, bytes, count);
}

int stat(const char* path, struct stat* status) noexcept {
    if (FailingSystem::fails("stat", AT_FDCWD, path)) return -1;
    return own(stat, "stat")(path, status);
}

int fstat(int descriptor, struct stat* status) noexcept {
    if (FailingSystem::fails("fstat", descriptor, nullptr)) return -1;
    return own(fstat, "fstat")(descriptor, status);
}

int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept {
    if (FailingSystem::fails("fstatat", folder, path)) return -1;
    return own(fstatat, "fstatat")(folder, path, status, flags);
}

int fstatfs(int descriptor, struct statfs* status) noexcept {
    if (FailingSystem::fails("fstatfs", descriptor, nullptr)) return -1;
    return own(fstatfs, "fstatfs")(descriptor, status);
}

}  // extern "C"
