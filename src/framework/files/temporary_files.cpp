#include "framework/files/temporary_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <utility>

#include "framework/files/paths.h"

namespace bracken {

namespace {

constexpr int maxNames = 1000;
constexpr std::string_view namePrefix = ".bracken-lens-";

bool isTemporaryName(std::string_view name) {
    if (!name.starts_with(namePrefix)) return false;
    std::string_view numbers = name.substr(namePrefix.size());
    size_t dash = numbers.find('-');
    return dash != numbers.npos && dash > 0 && dash + 1 < numbers.size() &&
           numbers.find_first_not_of("0123456789", dash + 1) == numbers.npos &&
           numbers.find_first_not_of("0123456789") == dash;
}

// Exclusively and without waiting, for as long as the descriptor or a duplicate is open.
int lock(const Descriptor& file) {
    return flock(file.get(), LOCK_EX | LOCK_NB);
}

// Whether the regular file that is open still has that name.
bool hasName(int descriptor, const std::string& path) {
    struct stat opened;
    struct stat named;
    return fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &named) == 0 &&
           S_ISREG(opened.st_mode) && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

// While the file is locked the name stays its own: a new writer can't make the name, and whoever
// else would remove it has to lock the same file. A writer that has made the file and not locked it
// yet finds it gone and takes another name.
void removeUnlessInUse(const std::string& path) {
    // For writing, since locks over a network require that.
    Descriptor file(open(path.c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen()) return;
    if (lock(file) == 0 && hasName(file.get(), path)) unlink(path.c_str());
}

// Another process may have one of that name.
std::string temporaryName() {
    static std::atomic<unsigned> counter{0};
    return std::string(namePrefix) + std::to_string(getpid()) + "-" + std::to_string(++counter);
}

// Locks a file just made. False if somebody took it for a left-over before that: then the name is
// no longer the caller's.
bool lockOwn(const TemporaryFile& made) {
    if (lock(made.file) != 0 && errno == EWOULDBLOCK) return false;
    return hasName(made.file.get(), made.path);
}

}  // namespace

std::optional<TemporaryFile> makeTemporary(const std::string& folder, mode_t mode) {
    for (int i = 0; i < maxNames; ++i) {
        std::string path = joinPath(folder, temporaryName());
        Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (!file.isOpen() && errno != EEXIST) return std::nullopt;
        TemporaryFile made{std::move(path), std::move(file)};
        if (made.file.isOpen() && lockOwn(made)) return made;
    }
    errno = EEXIST;
    return std::nullopt;
}

void removeLeftOvers(const std::string& folder) {
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (isTemporaryName(entry->path().filename().native())) removeUnlessInUse(entry->path());
    }
}

}  // namespace bracken
