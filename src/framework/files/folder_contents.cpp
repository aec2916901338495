#include "framework/files/folder_contents.h"

#include <dirent.h>
#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <string_view>
#include <utility>

namespace bracken {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, CloseFolder>;

int64_t nanoseconds(const struct timespec& time) {
    return int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

// Times of change move in steps: a tick of the kernel, or two seconds where a file system keeps
// whole ones. Two changes within a step look the same, so a folder listed within a step of its
// latest change has to be listed again.
bool isSettled(const struct timespec& changed, const struct timespec& listed) {
    const int64_t step = changed.tv_nsec == 0 ? 2'000'000'000 : 20'000'000;
    const int64_t age = nanoseconds(listed) - nanoseconds(changed);
    return age > step || age < -step;
}

// False for a dangling link.
bool followType(int folder, FolderContents::Entry& entry) {
    struct stat facts;
    if (fstatat(folder, entry.name.c_str(), &facts, 0) != 0)
        return !entry.link || !isAbsence(errno);
    entry.directory = S_ISDIR(facts.st_mode);
    return true;
}

bool isLink(int folder, const char* name) {
    struct stat facts;
    return fstatat(folder, name, &facts, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(facts.st_mode);
}

std::vector<FolderContents::Entry> readEntries(DIR* folder) {
    std::vector<FolderContents::Entry> entries;
    while (const dirent* next = readdir(folder)) {
        const std::string_view name = next->d_name;
        if (name == "." || name == "..") continue;
        const bool unknown = next->d_type == DT_UNKNOWN;
        const bool link = unknown ? isLink(dirfd(folder), next->d_name) : next->d_type == DT_LNK;
        FolderContents::Entry entry{std::string(name), next->d_type == DT_DIR,
                                    next->d_type == DT_REG, link};
        if ((unknown || link) && !followType(dirfd(folder), entry)) continue;
        entries.push_back(std::move(entry));
    }
    std::sort(entries.begin(), entries.end(),
              [](const auto& a, const auto& b) { return a.name < b.name; });
    return entries;
}

}  // namespace

bool isAbsence(int error) {
    return error == ENOENT || error == ENOTDIR || error == ELOOP;
}

std::shared_ptr<const FolderContents> FolderContents::read(const std::string& path) {
    struct timespec now;
    struct stat facts;
    clock_gettime(CLOCK_REALTIME, &now);
    const OpenFolder folder(opendir(path.c_str()));
    if (!folder || fstat(dirfd(folder.get()), &facts) != 0) return nullptr;
    auto contents = std::make_shared<FolderContents>();
    contents->device = facts.st_dev;
    contents->inode = facts.st_ino;
    contents->changed = facts.st_ctim;
    contents->settled = isSettled(facts.st_ctim, now);
    contents->entries = readEntries(folder.get());
    return contents;
}

bool FolderContents::holdFor(const std::string& path) const {
    struct stat facts;
    return settled && stat(path.c_str(), &facts) == 0 && inode == facts.st_ino &&
           device == facts.st_dev && nanoseconds(changed) == nanoseconds(facts.st_ctim);
}

}  // namespace bracken
