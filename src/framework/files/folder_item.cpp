#include "framework/files/folder_item.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

#include "framework/files/folder_listing.h"
#include "framework/files/paths.h"
#include "framework/files/special_folder.h"

namespace bracken {

namespace {

constexpr mode_t kPermissions = 0777;
constexpr mode_t kFolderMode = 0700;

std::optional<struct stat> factsOf(const std::string& path) {
    struct stat facts;
    if (stat(path.c_str(), &facts) != 0) return std::nullopt;
    return facts;
}

// What the latest system call has against the path.
std::string reason(const std::string& path) {
    return path + ": " + std::generic_category().message(errno);
}

// A stream over the path, or nil with the reason. Only folders and regular files are opened at all:
// opening a device may do something, and opening a pipe waits for the other end.
template <class Stream>
Ref<Stream> openStream(const std::string& path, int access) {
    const auto facts = factsOf(path);
    if (!facts) return Ref<Stream>::nilBecause(reason(path));
    if (!S_ISREG(facts->st_mode) && !S_ISDIR(facts->st_mode)) return make<Stream>(-1);
    if (S_ISDIR(facts->st_mode)) errno = EISDIR;
    const int descriptor = S_ISDIR(facts->st_mode)
                               ? -1
                               : open(path.c_str(), access | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) return Ref<Stream>::nilBecause(reason(path));
    return make<Stream>(descriptor);
}

std::unique_ptr<ReplacingFile> openForReplacing(const std::string& path, mode_t fresh) {
    const bool ownerOnly = SpecialFolder::keepsPrivate(path);
    return ReplacingFile::open(path, {.fresh = fresh, .ownerOnly = ownerOnly}, FileCalls::system());
}

// False when the source breaks off.
bool copyBytes(int source, ReplacingFile& target) {
    char block[64 * 1024];
    for (;;) {
        const ssize_t got = read(source, block, sizeof block);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return got == 0;
        target.write({block, static_cast<size_t>(got)});
    }
}

}  // namespace

FolderItem::FolderItem(std::string path) : path_(trimmedPath(std::move(path))) {}

FolderItem::FolderItem(std::string path, bool directory, bool file,
                       std::shared_ptr<const FolderChain> chain)
    : path_(std::move(path)), directory_(directory), file_(file), chain_(std::move(chain)) {}

FolderItem::~FolderItem() = default;

FolderListing& FolderItem::listing() {
    if (!listing_) listing_ = std::make_unique<FolderListing>(path_, chain_);
    return *listing_;
}

int FolderItem::Count() {
    if (directory_ == false) return 0;
    return static_cast<int>(listing().count());
}

Ref<FolderItem> FolderItem::Item(int i) {
    if (i < 1 || directory_ == false) return nullptr;
    const FolderListing::Entry* entry = listing().entry(static_cast<size_t>(i) - 1);
    if (entry == nullptr) return nullptr;
    std::string path = joinPath(path_, entry->name);
    if (entry->gone) return Ref<FolderItem>::nilBecause(path + " has vanished");
    bool directory = entry->directory;
    if (entry->link) {
        // Its target may go or change with no trace in this folder.
        const auto facts = factsOf(path);
        if (!facts) return Ref<FolderItem>::nilBecause(reason(path));
        directory = S_ISDIR(facts->st_mode);
    }
    return std::shared_ptr<FolderItem>(
        new FolderItem(std::move(path), directory, entry->file, listing().chain()));
}

Ref<FolderItem> FolderItem::another() const {
    auto item = std::make_shared<FolderItem>(path_);
    item->directory_ = directory_;
    item->file_ = file_;
    item->chain_ = chain_;
    return item;
}

bool FolderItem::Exists() const {
    return factsOf(path_).has_value();
}

bool FolderItem::Directory() const {
    if (directory_) return *directory_;
    const auto facts = factsOf(path_);
    return facts && S_ISDIR(facts->st_mode);
}

std::string FolderItem::Name() const {
    return lastComponent(path_);
}

std::string FolderItem::AbsolutePath() const {
    return path_;
}

uint64_t FolderItem::Length() const {
    const auto facts = factsOf(path_);
    return facts && S_ISREG(facts->st_mode) ? static_cast<uint64_t>(facts->st_size) : 0;
}

Ref<FolderItem> FolderItem::Parent() const {
    if (path_ == "/") return nullptr;
    return make<FolderItem>(parentPath(path_));
}

Ref<FolderItem> FolderItem::Child(const std::string& name) const {
    return make<FolderItem>(joinPath(path_, name));
}

std::string FolderItem::ShellPath() const {
    std::string quoted = "'";
    for (const char c : path_) quoted += c == '\'' ? "'\\''" : std::string(1, c);
    return quoted + "'";
}

Ref<BinaryStream> FolderItem::OpenAsBinaryFile(bool write) const {
    return openStream<BinaryStream>(path_, write ? O_RDWR : O_RDONLY);
}

Ref<TextInputStream> FolderItem::OpenAsTextFile() const {
    return openStream<TextInputStream>(path_, O_RDONLY);
}

Ref<TextOutputStream> FolderItem::CreateTextFile() const {
    auto file = openForReplacing(path_, 0666);
    if (!file) return Ref<TextOutputStream>::nilBecause(reason(path_));
    return make<TextOutputStream>(std::move(file));
}

void FolderItem::Delete() const {
    std::remove(path_.c_str());
}

void FolderItem::CopyFileTo(const Ref<FolderItem>& destination) const {
    const auto facts = factsOf(path_);
    if (!facts || !S_ISREG(facts->st_mode)) return;
    const int source = open(path_.c_str(), O_RDONLY | O_CLOEXEC);
    if (source < 0) return;
    const Ref<FolderItem> target =
        destination->Directory() ? destination->Child(Name()) : destination;
    const auto file = openForReplacing(target->path_, facts->st_mode & kPermissions);
    if (file && copyBytes(source, *file)) file->commit();
    close(source);
}

void FolderItem::CreateAsFolder() const {
    mkdir(path_.c_str(), kFolderMode);
}

Ref<FolderItem> GetFolderItem(const std::string& path, int /*pathForm*/) {
    if (path.empty() || path.front() != '/') return nullptr;
    return make<FolderItem>(path);
}

}  // namespace bracken
