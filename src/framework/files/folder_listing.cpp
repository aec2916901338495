#include "framework/files/folder_listing.h"

#include <dirent.h>
#include <fcntl.h>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <string_view>
#include <unordered_map>
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

bool liesOn(const FolderChain* chain, const struct stat& facts) {
    for (; chain != nullptr; chain = chain->above.get())
        if (chain->device == facts.st_dev && chain->inode == facts.st_ino) return true;
    return false;
}

// False for a dangling link.
bool followType(int folder, FolderListing::Entry& entry) {
    struct stat facts;
    if (fstatat(folder, entry.name.c_str(), &facts, 0) != 0) return !entry.link;
    entry.directory = S_ISDIR(facts.st_mode);
    return true;
}

bool isLink(int folder, const char* name) {
    struct stat facts;
    return fstatat(folder, name, &facts, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(facts.st_mode);
}

std::vector<FolderListing::Entry> readEntries(DIR* folder) {
    std::vector<FolderListing::Entry> entries;
    while (const dirent* next = readdir(folder)) {
        const std::string_view name = next->d_name;
        if (name == "." || name == "..") continue;
        const bool unknown = next->d_type == DT_UNKNOWN;
        const bool link = unknown ? isLink(dirfd(folder), next->d_name) : next->d_type == DT_LNK;
        FolderListing::Entry entry{std::string(name), next->d_type == DT_DIR,
                                   next->d_type == DT_REG, link, false};
        if ((unknown || link) && !followType(dirfd(folder), entry)) continue;
        entries.push_back(std::move(entry));
    }
    std::sort(entries.begin(), entries.end(),
              [](const auto& a, const auto& b) { return a.name < b.name; });
    return entries;
}

}  // namespace

FolderListing::FolderListing(std::string path, std::shared_ptr<const FolderChain> above)
    : path_(std::move(path)), above_(std::move(above)) {}

size_t FolderListing::count() {
    refresh();
    return listable_ ? entries_.size() : 0;
}

const FolderListing::Entry* FolderListing::entry(size_t index) {
    if (!chain_) refresh();
    return listable_ && index < entries_.size() ? &entries_[index] : nullptr;
}

void FolderListing::refresh() {
    struct stat facts;
    if (stat(path_.c_str(), &facts) != 0 || !S_ISDIR(facts.st_mode))
        listable_ = false;
    else if (!upToDate(facts))
        list();
}

bool FolderListing::upToDate(const struct stat& facts) const {
    return listable_ && settled_ && chain_->inode == facts.st_ino &&
           chain_->device == facts.st_dev && nanoseconds(changed_) == nanoseconds(facts.st_ctim);
}

void FolderListing::list() {
    struct timespec now;
    struct stat facts;
    clock_gettime(CLOCK_REALTIME, &now);
    const OpenFolder folder(opendir(path_.c_str()));
    listable_ = folder && fstat(dirfd(folder.get()), &facts) == 0 && !liesOn(above_.get(), facts);
    if (!listable_) return;
    chain_ = std::make_shared<FolderChain>(FolderChain{facts.st_dev, facts.st_ino, above_});
    changed_ = facts.st_ctim;
    settled_ = isSettled(changed_, now);
    merge(readEntries(folder.get()));
}

void FolderListing::merge(std::vector<Entry> present) {
    if (entries_.empty()) {
        entries_ = std::move(present);
        return;
    }
    std::unordered_map<std::string, size_t> known;
    for (size_t i = 0; i < entries_.size(); ++i) {
        known.emplace(entries_[i].name, i);
        entries_[i].gone = true;
    }
    for (Entry& entry : present) {
        const auto at = known.find(entry.name);
        if (at != known.end())
            entries_[at->second] = std::move(entry);
        else
            entries_.push_back(std::move(entry));
    }
}

}  // namespace bracken
