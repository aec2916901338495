#include "framework/files/replacing_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <utility>

#include "framework/files/paths.h"
#include "framework/files/temporary_files.h"

namespace bracken {

namespace {

constexpr size_t flushSize = size_t{64} * 1024;
constexpr int maxLinks = 40;
constexpr int maxNames = 1000;
constexpr mode_t permissions = 07777;
constexpr mode_t privateMode = 0600;

// The file that `path` stands for, existing or not: every link at its end is followed.
std::string resolveLinks(std::string path) {
    for (int i = 0; i < maxLinks; ++i) {
        char link[PATH_MAX];
        const ssize_t length = readlink(path.c_str(), link, sizeof link);
        if (length <= 0) break;
        const std::string to(link, static_cast<size_t>(length));
        path = to.front() == '/' ? to : joinPath(parentPath(path), to);
    }
    return path;
}

// In a folder with the sticky bit only the owner of a file, or of the folder, may rename over it.
bool mayRenameOver(const std::string& target, const struct stat& present) {
    struct stat folder;
    const uid_t user = geteuid();
    if (stat(parentPath(target).c_str(), &folder) != 0) return true;
    return (folder.st_mode & S_ISVTX) == 0 || user == 0 || user == folder.st_uid ||
           user == present.st_uid;
}

// Nothing can be renamed over a file that is mounted by itself, as containers do it.
bool isMountPoint(const std::string& target) {
    struct statx facts;
    return statx(AT_FDCWD, target.c_str(), 0, STATX_TYPE, &facts) == 0 &&
           (facts.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

bool isRefusal(int error) {
    return error == EACCES || error == EPERM || error == EROFS;
}

bool isOutOfSpace(int error) {
    return error == ENOSPC || error == EDQUOT;
}

bool writeAll(FileCalls& calls, int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = calls.write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<size_t>(written));
    }
    return true;
}

}  // namespace

std::unique_ptr<ReplacingFile> ReplacingFile::open(const std::string& target, Modes modes,
                                                   FileCalls& calls) {
    std::unique_ptr<ReplacingFile> file(new ReplacingFile(resolveLinks(target), calls));
    struct stat present;
    bool opened = false;
    if (stat(file->target_.c_str(), &present) != 0)
        opened = errno == ENOENT && file->openBeside(modes.ownerOnly ? privateMode : modes.fresh);
    else if (S_ISREG(present.st_mode))
        opened = file->openExisting(present, modes.ownerOnly);
    else
        opened = file->openSpecial();
    if (!opened) return nullptr;
    return file;
}

void ReplacingFile::removeLeftOvers(const std::string& target) {
    for (const std::string& file : {target, resolveLinks(target)})
        bracken::removeLeftOvers(parentPath(file), FileCalls::system());
}

ReplacingFile::ReplacingFile(std::string target, FileCalls& calls)
    : target_(std::move(target)), calls_(calls) {}

ReplacingFile::~ReplacingFile() {
    dropTemporary();
}

void ReplacingFile::dropTemporary() {
    // Ahead of the lock, while the name is this file's for sure.
    if (!temporary_.empty()) unlink(temporary_.c_str());
    temporary_.clear();
    closeDescriptor();
}

bool ReplacingFile::openSpecial() {
    way_ = Way::Through;
    // Not blocking, or a pipe that nobody reads would hold the program up here.
    descriptor_ = calls_.open(target_.c_str(), O_WRONLY | O_NOCTTY | O_NONBLOCK, 0);
    if (descriptor_ < 0) return false;
    fcntl(descriptor_, F_SETFL, fcntl(descriptor_, F_GETFL) & ~O_NONBLOCK);
    return true;
}

bool ReplacingFile::openExisting(const struct stat& present, bool ownerOnly) {
    if (faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) return false;
    const mode_t mode = ownerOnly ? privateMode : present.st_mode & permissions;
    if (!mayRenameOver(target_, present) || isMountPoint(target_)) return openInPlace(mode);
    if (!openBeside(privateMode)) return isRefusal(errno) && openInPlace(mode);
    // A file system may have no modes to set; a private file is made as one.
    if (calls_.fchmod(descriptor_, keepOwner(present) ? mode : mode & 0777) == 0 || ownerOnly)
        return true;
    dropTemporary();
    return openInPlace(mode);
}

// Somebody else's file stays theirs where the user may see to that, and else at least their
// group's.
bool ReplacingFile::keepOwner(const struct stat& present) {
    constexpr auto unchanged = static_cast<uid_t>(-1);
    for (const uid_t owner : {present.st_uid, unchanged})
        if (fchown(descriptor_, owner, present.st_gid) == 0) return owner == present.st_uid;
    return false;
}

bool ReplacingFile::openBeside(mode_t mode) {
    const std::string folder = parentPath(target_);
    bracken::removeLeftOvers(folder, calls_);
    for (int i = 0; i < maxNames; ++i) {
        std::string name = joinPath(folder, temporaryName());
        descriptor_ = calls_.open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL, mode);
        if (descriptor_ < 0 && errno != EEXIST) return false;
        if (descriptor_ >= 0 && claimTemporary(name, descriptor_, calls_)) {
            temporary_ = std::move(name);
            return true;
        }
        closeDescriptor();
    }
    errno = EEXIST;
    return false;
}

bool ReplacingFile::openInPlace(mode_t mode) {
    way_ = Way::InPlaceAtCommit;
    descriptor_ = calls_.open(target_.c_str(), O_WRONLY, 0);
    if (descriptor_ < 0) return false;
    // Changes nothing but where a file of the user's own has to become private.
    calls_.fchmod(descriptor_, mode);
    return true;
}

void ReplacingFile::write(std::string_view bytes) {
    pending_.append(bytes);
    if (way_ == Way::InPlaceAtCommit || pending_.size() < flushSize) return;
    failed_ = failed_ || !writeAll(calls_, descriptor_, pending_);
    pending_.clear();
}

bool ReplacingFile::commit() {
    if (way_ == Way::InPlaceAtCommit) return overwriteInPlace();
    failed_ = failed_ || !writeAll(calls_, descriptor_, pending_);
    if (way_ == Way::Through) return closeDescriptor() && !failed_;
    return !failed_ && renameOver();
}

bool ReplacingFile::overwriteInPlace() {
    // Room first and cut last: a full disk shows while the old content is still whole.
    const auto size = static_cast<off_t>(pending_.size());
    if (calls_.fallocate(descriptor_, size) != 0 && isOutOfSpace(errno)) return false;
    return writeAll(calls_, descriptor_, pending_) && ftruncate(descriptor_, size) == 0 &&
           calls_.fsync(descriptor_) == 0 && closeDescriptor();
}

bool ReplacingFile::renameOver() {
    // Some file systems say no earlier than at a closing that the bytes did not arrive; the
    // descriptor itself stays open for the lock.
    if (calls_.fsync(descriptor_) != 0) return false;
    if (::close(fcntl(descriptor_, F_DUPFD_CLOEXEC, 0)) != 0) return false;
    if (calls_.rename(temporary_.c_str(), target_.c_str()) != 0) return false;
    temporary_.clear();
    closeDescriptor();
    syncFolder();
    return true;
}

// Makes the rename itself outlast a loss of power. The new file stands whether or not this works.
void ReplacingFile::syncFolder() {
    const int folder = calls_.open(parentPath(target_).c_str(), O_RDONLY | O_DIRECTORY, 0);
    if (folder < 0) return;
    calls_.fsync(folder);
    ::close(folder);
}

bool ReplacingFile::closeDescriptor() {
    return descriptor_ < 0 || ::close(std::exchange(descriptor_, -1)) == 0;
}

}  // namespace bracken
