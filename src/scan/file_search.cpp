#include "scan/file_search.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <optional>
#include <utility>

#include "framework/text/text.h"
#include "scan/cached_calls.h"

namespace bracken {

namespace {

// Bytes read at a time: few calls, and the piece is still in the cache when it is searched.
constexpr int64_t pieceSize = int64_t{64} * 1024;
// The length of a file that ends within the first piece need not be asked, which would cost as much
// as a quarter of the rest.
constexpr int64_t unknownLength = -1;
// A read that a disk error cuts short ends at a page boundary, and the next one reports the error;
// a file that ends elsewhere needs no next one.
constexpr int64_t minPageSize = 4096;

// Bytes to read at a time where pieces overlap by so many: names of a megabyte are not to be
// searched for in the same bytes again and again.
int64_t pieceFor(size_t overlap) {
    auto pages = static_cast<int64_t>(overlap) / minPageSize + 1;
    return std::max(pieceSize, pages * minPageSize);
}

}  // namespace

bool passesExtensions(std::string_view fileName, std::string_view extensions) {
    std::string_view last = fileName.substr(fileName.rfind('.') + 1);
    return InStr(0, extensions, last) > 0 || extensions.empty();
}

int64_t searchedLength(uint64_t fileLength) {
    return std::max(static_cast<int32_t>(static_cast<uint32_t>(fileLength)), 0);
}

// None, with errno set, if it can't be asked.
std::optional<int64_t> FileSearch::lengthOf(int descriptor) const {
    struct stat status;
    if (fstat(descriptor, &status) != 0) return std::nullopt;
    return extent_ == Extent::whole ? status.st_size
                                    : searchedLength(static_cast<uint64_t>(status.st_size));
}

int FileSearch::search(const OpenFolder& folder, const std::string& path, bool listedAsFile,
                       const Matcher& matcher, const std::function<bool()>& cancelled,
                       Matcher::Hits& hits) {
    bytes_ = 0;
    // Nobody could open the file by that path.
    if (path.size() >= PATH_MAX) return ENAMETOOLONG;
    const char* name = folder.nameOf(path);
    struct stat status;
    if (!listedAsFile) {
        if (fstatat(folder.descriptor(), name, &status, 0) != 0) return errno;
        if (S_ISDIR(status.st_mode)) return EISDIR;
        if (!S_ISREG(status.st_mode)) return 0;
    }
    Descriptor file = open(folder.descriptor(), name);
    if (!file.isOpen()) return errno;
    bool ask = !listedAsFile || folder.askLengths();
    std::optional<int64_t> length = ask ? lengthOf(file.get()) : unknownLength;
    return length ? searchOpened(file.get(), *length, matcher, cancelled, hits) : errno;
}

int FileSearch::searchCached(const OpenFolder& folder, const std::string& path, bool listedAsFile,
                             const Matcher& matcher, const std::function<bool()>& cancelled,
                             Matcher::Hits& hits) {
    cachedOnly_ = true;
    int error = search(folder, path, listedAsFile, matcher, cancelled, hits);
    cachedOnly_ = false;
    return error;
}

Descriptor FileSearch::open(int folder, const char* name) const {
    constexpr int flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    if (cachedOnly_) {
        Descriptor file = openCached(folder, name, flags);
        if (file.isOpen() || errno == EAGAIN) return file;
    }
    return Descriptor(openat(folder, name, flags));
}

int64_t FileSearch::readPiece(int descriptor, char* bytes, size_t count) {
    if (std::exchange(cachedOnly_, false)) {
        ssize_t got = readCached(descriptor, bytes, count);
        if (got >= 0 || errno == EAGAIN) return got;
    }
    return readSome(descriptor, bytes, count);
}

void FileSearch::reserve(size_t size) {
    if (bufferSize_ >= size) return;
    buffer_ = std::make_unique_for_overwrite<char[]>(size);
    bufferSize_ = size;
}

int FileSearch::readOn(int descriptor, size_t kept, Rest& rest, int64_t& got) {
    auto count = static_cast<size_t>(std::min(rest.left, rest.piece));
    got = readPiece(descriptor, buffer_.get() + kept, count);
    if (got < 0) return errno;
    if (rest.length == unknownLength && got > 0 && got % minPageSize == 0) {
        std::optional<int64_t> asked = lengthOf(descriptor);
        if (!asked) return errno;
        rest.left = rest.length = *asked;
    }
    bool ended = rest.length != unknownLength && (got == 0 || rest.left < got);
    if (ended && extent_ == Extent::whole) return shrank;
    got = std::min(got, rest.left);
    rest.left -= got;
    bytes_ += got;
    return 0;
}

int FileSearch::searchOpened(int descriptor, int64_t length, const Matcher& matcher,
                             const std::function<bool()>& cancelled, Matcher::Hits& hits) {
    size_t overlap = matcher.overlap();
    int64_t piece = pieceFor(overlap);
    reserve(overlap + static_cast<size_t>(piece) + 2);
    // Stands for what is before the file, and at its end for what comes after it.
    size_t margin = matcher.margin();
    std::memset(buffer_.get(), 0, margin);
    size_t kept = margin;
    bytes_ = 0;
    Rest rest{length, length == unknownLength ? piece : length, piece};
    while (rest.left > 0) {
        if (cancelled()) return ECANCELED;
        int64_t got = 0;
        if (int error = readOn(descriptor, kept, rest, got)) return error;
        if (got == 0) break;
        bool last = rest.left == 0 || rest.length == unknownLength;
        size_t filled = kept + static_cast<size_t>(got);
        std::memset(buffer_.get() + filled, 0, margin);
        matcher.search({buffer_.get(), filled + (last ? margin : 0)}, hits);
        if (last) break;
        kept = std::min(filled, overlap);
        std::memmove(buffer_.get(), buffer_.get() + filled - kept, kept);
    }
    return 0;
}

}  // namespace bracken
