#include "framework/files/folder_contents.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <string_view>
#include <utility>

#include "framework/files/unreadable.h"

namespace bracken {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};
using FolderStream = std::unique_ptr<DIR, CloseFolder>;

int64_t nanoseconds(const struct timespec& time) {
    return int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

// Times of change have a resolution: a tick of the kernel, or two seconds where a file system keeps
// whole ones. Two changes within it look the same, so a folder listed so soon after its latest
// change has to be listed again.
bool laterChangesShow(const struct timespec& changed, const struct timespec& listed) {
    int64_t step = changed.tv_nsec == 0 ? 2'000'000'000 : 20'000'000;
    int64_t age = nanoseconds(listed) - nanoseconds(changed);
    return age > step || age < -step;
}

// Asks what the listing didn't say; `flags` are those of fstatat.
void askType(int folder, FolderContents::Entry& entry, int flags) {
    struct stat status = {};
    entry.error = fstatat(folder, entry.name.c_str(), &status, flags) == 0 ? 0 : errno;
    entry.directory = S_ISDIR(status.st_mode);
    if (flags == 0) return;
    entry.file = S_ISREG(status.st_mode);
    entry.link = S_ISLNK(status.st_mode);
}

FolderContents::Entry entryOf(int folder, const dirent& found) {
    FolderContents::Entry entry{found.d_name, found.d_type == DT_DIR, found.d_type == DT_REG,
                                found.d_type == DT_LNK, 0};
    if (found.d_type == DT_UNKNOWN) askType(folder, entry, AT_SYMLINK_NOFOLLOW);
    if (entry.link) askType(folder, entry, 0);
    return entry;
}

std::vector<FolderContents::Entry> readEntries(DIR* folder, const std::string& path) {
    std::vector<FolderContents::Entry> entries;
    while (true) {
        errno = 0;
        const dirent* next = readdir(folder);
        if (next == nullptr) break;
        std::string_view name = next->d_name;
        if (name == "." || name == "..") continue;
        FolderContents::Entry entry = entryOf(dirfd(folder), *next);
        if (!isAbsence(entry.error)) entries.push_back(std::move(entry));
    }
    if (errno != 0) throw UnreadableException(path, errno);
    std::sort(entries.begin(), entries.end(),
              [](const auto& a, const auto& b) { return a.name < b.name; });
    return entries;
}

}  // namespace

std::shared_ptr<const FolderContents> FolderContents::read(const std::string& path) {
    struct timespec now;
    struct stat status;
    clock_gettime(CLOCK_REALTIME, &now);
    FolderStream folder(opendir(path.c_str()));
    if (!folder && isAbsence(errno)) return nullptr;
    if (!folder || fstat(dirfd(folder.get()), &status) != 0) throw UnreadableException(path, errno);
    return std::make_shared<FolderContents>(FolderContents{FolderIdentity(status), status.st_ctim,
                                                           laterChangesShow(status.st_ctim, now),
                                                           readEntries(folder.get(), path)});
}

bool FolderContents::isCurrent(const std::string& path) const {
    struct stat status;
    return showsLaterChanges && stat(path.c_str(), &status) == 0 &&
           identity == FolderIdentity(status) &&
           nanoseconds(changeTime) == nanoseconds(status.st_ctim);
}

}  // namespace bracken
