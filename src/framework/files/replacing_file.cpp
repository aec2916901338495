#include "framework/files/replacing_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <optional>
#include <utility>

#include "framework/files/paths.h"
#include "framework/files/temporary_files.h"

namespace bracken {

namespace {

constexpr size_t flushSize = size_t{64} * 1024;
constexpr int maxLinks = 40;

// The file that `path` leads to, existing or not: every link at its end is followed.
std::string resolveLinks(std::string path) {
    for (int i = 0; i < maxLinks; ++i) {
        char link[PATH_MAX];
        ssize_t length = readlink(path.c_str(), link, sizeof link);
        if (length <= 0) break;
        std::string to(link, static_cast<size_t>(length));
        path = to.front() == '/' ? to : joinPath(parentPath(path), to);
    }
    return path;
}

// In a folder with the sticky bit only the owner of a file, or of the folder, may rename over it.
bool mayRenameOver(const std::string& target, const struct stat& present) {
    struct stat folder;
    uid_t user = geteuid();
    if (stat(parentPath(target).c_str(), &folder) != 0) return true;
    return (folder.st_mode & S_ISVTX) == 0 || user == 0 || user == folder.st_uid ||
           user == present.st_uid;
}

// Nothing can be renamed over a single file that is mounted, as containers do it.
bool isMountPoint(const std::string& target) {
    struct statx status;
    return statx(AT_FDCWD, target.c_str(), 0, STATX_TYPE, &status) == 0 &&
           (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

bool isRefusal(int error) {
    return error == EACCES || error == EPERM || error == EROFS;
}

bool isOutOfSpace(int error) {
    return error == ENOSPC || error == EDQUOT;
}

}  // namespace

std::unique_ptr<ReplacingFile> ReplacingFile::open(const std::string& target, Modes modes) {
    std::unique_ptr<ReplacingFile> file(new ReplacingFile(resolveLinks(target)));
    struct stat present;
    bool opened = false;
    if (stat(file->target_.c_str(), &present) != 0)
        opened = errno == ENOENT &&
                 file->openTemporary(modes.ownerOnly ? privateFileMode : modes.newFile);
    else if (S_ISREG(present.st_mode))
        opened = file->openExisting(present, modes.ownerOnly);
    else
        opened = file->openSpecial();
    if (!opened) return nullptr;
    return file;
}

void ReplacingFile::removeLeftOvers(const std::string& target) {
    for (const std::string& file : {target, resolveLinks(target)})
        bracken::removeLeftOvers(parentPath(file));
}

ReplacingFile::ReplacingFile(std::string target) : target_(std::move(target)) {}

ReplacingFile::~ReplacingFile() {
    dropTemporary();
}

void ReplacingFile::dropTemporary() {
    // Before the lock is released: until then the name is surely this file's.
    if (!temporary_.empty()) unlink(temporary_.c_str());
    temporary_.clear();
    file_.close();
}

bool ReplacingFile::openSpecial() {
    method_ = Method::direct;
    // Not blocking: a pipe that nobody reads would stop the program here.
    file_ = Descriptor(::open(target_.c_str(), O_WRONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!file_.isOpen()) return false;
    fcntl(file_.get(), F_SETFL, fcntl(file_.get(), F_GETFL) & ~O_NONBLOCK);
    return true;
}

bool ReplacingFile::openExisting(const struct stat& present, bool ownerOnly) {
    if (faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) return false;
    mode_t mode = ownerOnly ? privateFileMode : present.st_mode & allModeBits;
    if (!mayRenameOver(target_, present) || isMountPoint(target_)) return openInPlace(mode);
    if (!openTemporary(privateFileMode)) return isRefusal(errno) && openInPlace(mode);
    // A file system may have no modes to set; a private file is made as one.
    if (fchmod(file_.get(), keepOwner(present) ? mode : mode & permissionBits) == 0 || ownerOnly)
        return true;
    dropTemporary();
    return openInPlace(mode);
}

// Keeps another user's file theirs where this user may do that, and else at least their group's.
bool ReplacingFile::keepOwner(const struct stat& present) {
    constexpr auto unchanged = static_cast<uid_t>(-1);
    for (uid_t owner : {present.st_uid, unchanged})
        if (fchown(file_.get(), owner, present.st_gid) == 0) return owner == present.st_uid;
    return false;
}

bool ReplacingFile::openTemporary(mode_t mode) {
    std::string folder = parentPath(target_);
    bracken::removeLeftOvers(folder);
    std::optional<TemporaryFile> made = makeTemporary(folder, mode);
    if (!made) return false;
    file_ = std::move(made->file);
    temporary_ = std::move(made->path);
    return true;
}

bool ReplacingFile::openInPlace(mode_t mode) {
    method_ = Method::inPlaceAtCommit;
    file_ = Descriptor(::open(target_.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file_.isOpen()) return false;
    // Only a file of the user's own that has to become private gets another mode by this.
    fchmod(file_.get(), mode);
    return true;
}

void ReplacingFile::write(std::string_view bytes) {
    pending_.append(bytes);
    if (method_ == Method::inPlaceAtCommit || pending_.size() < flushSize) return;
    failed_ = failed_ || !writeAll(file_.get(), pending_);
    pending_.clear();
}

bool ReplacingFile::commit() {
    if (method_ == Method::inPlaceAtCommit) return overwriteInPlace();
    failed_ = failed_ || !writeAll(file_.get(), pending_);
    if (method_ == Method::direct) return file_.close() && !failed_;
    return !failed_ && renameOver();
}

bool ReplacingFile::overwriteInPlace() {
    // Space first and truncation last: a full disk shows while the old content is still whole.
    auto size = static_cast<off_t>(pending_.size());
    if (fallocate(file_.get(), FALLOC_FL_KEEP_SIZE, 0, size) != 0 && isOutOfSpace(errno))
        return false;
    return writeAll(file_.get(), pending_) && ftruncate(file_.get(), size) == 0 &&
           fsync(file_.get()) == 0 && file_.close();
}

bool ReplacingFile::renameOver() {
    // Some file systems report lost bytes only when a descriptor is closed, so a duplicate is; the
    // descriptor itself stays open for the lock.
    if (fsync(file_.get()) != 0) return false;
    if (::close(fcntl(file_.get(), F_DUPFD_CLOEXEC, 0)) != 0) return false;
    if (rename(temporary_.c_str(), target_.c_str()) != 0) return false;
    temporary_.clear();
    file_.close();
    syncFolder();
    return true;
}

// Makes the rename itself survive a loss of power. The new file is there whether or not this works.
void ReplacingFile::syncFolder() {
    Descriptor folder(::open(parentPath(target_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen()) fsync(folder.get());
}

}  // namespace bracken
