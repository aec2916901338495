#include "framework/files/temporary_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <string_view>

namespace bracken {

namespace {

constexpr std::string_view namePrefix = ".bracken-lens-";

bool isTemporaryName(std::string_view name) {
    if (!name.starts_with(namePrefix)) return false;
    const std::string_view numbers = name.substr(namePrefix.size());
    const size_t dash = numbers.find('-');
    return dash != numbers.npos && dash > 0 && dash + 1 < numbers.size() &&
           numbers.find_first_not_of("0123456789", dash + 1) == numbers.npos &&
           numbers.find_first_not_of("0123456789") == dash;
}

// Whether the regular file that is open still has that name.
bool hasName(int descriptor, const std::string& path) {
    struct stat opened;
    struct stat named;
    return fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &named) == 0 &&
           S_ISREG(opened.st_mode) && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

// Locked, the name stays this file's until it is removed: a new writer can't make the name, and
// whoever else would remove it has to lock the same file. A writer that has made the file and not
// locked it yet finds it gone and takes another name.
void removeUnlessInUse(const std::string& path, FileCalls& calls) {
    // For writing, since locks over a network ask for that.
    const int descriptor = calls.open(path.c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK, 0);
    if (descriptor < 0) return;
    if (calls.lock(descriptor) == 0 && hasName(descriptor, path)) unlink(path.c_str());
    close(descriptor);
}

}  // namespace

std::string temporaryName() {
    static std::atomic<unsigned> counter{0};
    return std::string(namePrefix) + std::to_string(getpid()) + "-" + std::to_string(++counter);
}

bool claimTemporary(const std::string& path, int descriptor, FileCalls& calls) {
    if (calls.lock(descriptor) != 0 && errno == EWOULDBLOCK) return false;
    return hasName(descriptor, path);
}

void removeLeftOvers(const std::string& folder, FileCalls& calls) {
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (isTemporaryName(entry->path().filename().native()))
            removeUnlessInUse(entry->path(), calls);
    }
}

}  // namespace bracken
