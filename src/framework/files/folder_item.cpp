#include "framework/files/folder_item.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

#include "framework/files/file_calls.h"
#include "framework/files/folder_listing.h"
#include "framework/files/paths.h"
#include "framework/files/replacing_file.h"
#include "framework/files/special_folder.h"
#include "framework/files/unreadable.h"

namespace bracken {

namespace {

std::optional<struct stat> statusOf(const std::string& path) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0) return std::nullopt;
    return status;
}

// Why the latest system call failed for the path.
std::string reason(const std::string& path) {
    return path + ": " + std::generic_category().message(errno);
}

// No descriptor for something that reads as empty; nothing, with errno set, if it can't be opened.
// Only regular files are opened at all: opening a device may have effects, and opening a pipe waits
// for the other end.
std::optional<Descriptor> openFile(const std::string& path, int access) {
    auto status = statusOf(path);
    if (!status) return std::nullopt;
    if (S_ISDIR(status->st_mode)) {
        errno = EISDIR;
        return std::nullopt;
    }
    if (!S_ISREG(status->st_mode)) return Descriptor();
    Descriptor file(open(path.c_str(), access | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) return std::nullopt;
    return file;
}

std::unique_ptr<ReplacingFile> openForReplacing(const std::string& path, mode_t newFile) {
    bool ownerOnly = SpecialFolder::keepsPrivate(path);
    return ReplacingFile::open(path, {.newFile = newFile, .ownerOnly = ownerOnly});
}

// Passes all bytes to `take`, block by block; false, with errno set, if reading fails.
template <class Take>
bool readAll(const Descriptor& file, const Take& take) {
    if (!file.isOpen()) return true;
    char block[64 * 1024];
    ssize_t got = 0;
    while ((got = readSome(file.get(), block, sizeof block)) > 0)
        take(std::string_view(block, static_cast<size_t>(got)));
    return got == 0;
}

}  // namespace

FolderItem::FolderItem(std::string path) : path_(trimmedPath(std::move(path))) {}

FolderItem::~FolderItem() = default;

FolderListing& FolderItem::listing() {
    if (!listing_) {
        auto entered = entered_ ? entered_ : std::make_shared<EnteredFolders>(nullptr);
        listing_ = std::make_unique<FolderListing>(path_, link_, std::move(entered));
    }
    return *listing_;
}

int FolderItem::Count() {
    if (directory_ == false) return 0;
    return static_cast<int>(listing().count());
}

Ref<FolderItem> FolderItem::Item(int i) {
    if (i < 1 || directory_ == false) return nullptr;
    size_t index = static_cast<size_t>(i) - 1;
    const FolderListing::Entry* entry = listing().entry(index);
    if (entry == nullptr) return nullptr;
    std::string path = joinPath(path_, entry->name);
    if (listing().isGone(index)) return Ref<FolderItem>::nilBecause(path + " has vanished");
    if (entry->error != 0) throw UnreadableException(std::move(path), entry->error);
    auto item = std::make_shared<FolderItem>(std::move(path));
    item->directory_ = entry->directory;
    item->file_ = entry->file;
    item->entered_ = listing().entered();
    if (entry->link && !item->followLink()) return Ref<FolderItem>::nilBecause(reason(item->path_));
    return item;
}

bool FolderItem::followLink() {
    // Its target may change without a change of the link's folder.
    auto status = statusOf(path_);
    if (!status && !isAbsence(errno)) throw UnreadableException(path_, errno);
    if (!status) return false;
    directory_ = S_ISDIR(status->st_mode);
    link_ = FolderIdentity(*status);
    return true;
}

Ref<FolderItem> FolderItem::copy() const {
    auto item = std::make_shared<FolderItem>(path_);
    item->directory_ = directory_;
    item->file_ = file_;
    item->link_ = link_;
    if (entered_) item->entered_ = std::make_shared<EnteredFolders>(entered_);
    return item;
}

bool FolderItem::Exists() const {
    return statusOf(path_).has_value();
}

bool FolderItem::Directory() const {
    if (directory_) return *directory_;
    auto status = statusOf(path_);
    return status && S_ISDIR(status->st_mode);
}

std::string FolderItem::Name() const {
    return lastComponent(path_);
}

const std::string& FolderItem::AbsolutePath() const {
    return path_;
}

uint64_t FolderItem::Length() const {
    auto status = statusOf(path_);
    return status && S_ISREG(status->st_mode) ? static_cast<uint64_t>(status->st_size) : 0;
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
    for (char c : path_) quoted += c == '\'' ? "'\\''" : std::string(1, c);
    return quoted + "'";
}

Ref<BinaryStream> FolderItem::OpenAsBinaryFile(bool write) const {
    auto file = openFile(path_, write ? O_RDWR : O_RDONLY);
    if (!file) return Ref<BinaryStream>::nilBecause(reason(path_));
    return make<BinaryStream>(std::move(*file));
}

Ref<TextInputStream> FolderItem::OpenAsTextFile() const {
    auto file = openFile(path_, O_RDONLY);
    std::string text;
    text.reserve(file ? Length() : 0);
    auto append = [&](std::string_view bytes) { text += bytes; };
    if (!file || !readAll(*file, append)) return Ref<TextInputStream>::nilBecause(reason(path_));
    return make<TextInputStream>(std::move(text));
}

Ref<TextOutputStream> FolderItem::CreateTextFile() const {
    auto file = openForReplacing(path_, newFileMode);
    if (!file) return Ref<TextOutputStream>::nilBecause(reason(path_));
    return make<TextOutputStream>(std::move(file));
}

void FolderItem::removeLeftOvers() const {
    ReplacingFile::removeLeftOvers(path_);
}

void FolderItem::Delete() const {
    std::remove(path_.c_str());
}

void FolderItem::CopyFileTo(const Ref<FolderItem>& destination) const {
    auto status = statusOf(path_);
    if (!status || !S_ISREG(status->st_mode)) return;
    Ref<FolderItem> target = destination->Directory() ? destination->Child(Name()) : destination;
    auto file = openForReplacing(target->path_, status->st_mode & permissionBits);
    auto source = file ? openFile(path_, O_RDONLY) : std::nullopt;
    if (!source) return;
    if (readAll(*source, [&](std::string_view bytes) { file->write(bytes); })) file->commit();
}

void FolderItem::CreateAsFolder() const {
    mkdir(path_.c_str(), privateFolderMode);
}

Ref<FolderItem> GetFolderItem(const std::string& path, int /*pathForm*/) {
    // The system would take it as ending at the NUL.
    if (path.find('\0') != path.npos)
        return Ref<FolderItem>::nilBecause("A path can't hold a NUL byte.");
    if (path.empty() || path.front() != '/')
        return Ref<FolderItem>::nilBecause("Not an absolute path: \"" + path + "\"");
    return make<FolderItem>(path);
}

}  // namespace bracken
