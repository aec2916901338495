#include "scan/file_search.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <optional>

namespace bracken {

namespace {

// Bytes read at a time: few calls, and the piece is still in the cache when it is searched.
constexpr int64_t pieceSize = int64_t{256} * 1024;
// Of a file that ends within the first piece the length need not be asked: it costs as much as a
// quarter of the rest.
constexpr int64_t unasked = -1;
// A read that an error of the disk cuts short ends at the edge of a page, and the next one reports
// the error; a file that ends elsewhere needs no next one.
constexpr int64_t smallestPage = 4096;

// None, with errno set, if it can't be asked.
std::optional<int64_t> lengthOf(int descriptor) {
    struct stat status;
    if (fstat(descriptor, &status) != 0) return std::nullopt;
    return searchedLength(static_cast<uint64_t>(status.st_size));
}

}  // namespace

int64_t searchedLength(uint64_t fileLength) {
    return std::max(static_cast<int32_t>(static_cast<uint32_t>(fileLength)), 0);
}

int FileSearch::search(const OpenFolder& folder, const std::string& path, bool listedAsFile,
                       const Matcher& matcher, const std::function<bool()>& cancelled,
                       Matcher::Hits& hits) {
    // Too long to be opened by whoever does not know the folder.
    if (path.size() >= PATH_MAX) return ENAMETOOLONG;
    const char* name = folder.nameOf(path);
    struct stat status;
    if (!listedAsFile) {
        if (fstatat(folder.descriptor(), name, &status, 0) != 0) return errno;
        if (S_ISDIR(status.st_mode)) return EISDIR;
        if (!S_ISREG(status.st_mode)) return 0;
    }
    int descriptor =
        openat(folder.descriptor(), name, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) return errno;
    bool ask = !listedAsFile || folder.askLengths();
    std::optional<int64_t> length = ask ? lengthOf(descriptor) : unasked;
    int error = length ? searchOpened(descriptor, *length, matcher, cancelled, hits) : errno;
    close(descriptor);
    return error;
}

int FileSearch::searchOpened(int descriptor, int64_t length, const Matcher& matcher,
                             const std::function<bool()>& cancelled, Matcher::Hits& hits) {
    // What a name that straddles two pieces needs of the first one.
    size_t overlap = matcher.longestName() > 0 ? matcher.longestName() - 1 : 0;
    buffer_.resize(std::max(buffer_.size(), overlap + static_cast<size_t>(pieceSize)));
    size_t kept = 0;
    int64_t left = length == unasked ? pieceSize : length;
    while (left > 0) {
        if (cancelled()) return ECANCELED;
        size_t wanted = static_cast<size_t>(std::min<int64_t>(left, pieceSize));
        ssize_t got = read(descriptor, buffer_.data() + kept, wanted);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return errno;
        if (got == 0) break;
        if (length == unasked && got % smallestPage == 0) {
            std::optional<int64_t> asked = lengthOf(descriptor);
            if (!asked) return errno;
            left = length = *asked;
        }
        got = std::min(got, left);
        size_t filled = kept + static_cast<size_t>(got);
        matcher.search({buffer_.data(), filled}, hits);
        left -= got;
        if (length == unasked) break;
        kept = std::min(filled, overlap);
        std::memmove(buffer_.data(), buffer_.data() + filled - kept, kept);
    }
    return 0;
}

}  // namespace bracken
