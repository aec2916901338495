#include "scan/file_search.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>

namespace bracken {

namespace {

// Bytes read at a time: few calls, and the piece is still in the cache when it is searched.
constexpr int64_t pieceSize = int64_t{256} * 1024;
// Of a file that ends within the first piece the length need not be asked: it costs as much as a
// quarter of the rest.
constexpr int64_t unasked = -1;

int64_t lengthOf(int descriptor) {
    struct stat facts;
    return fstat(descriptor, &facts) == 0 ? searchedLength(static_cast<uint64_t>(facts.st_size))
                                          : 0;
}

}  // namespace

int64_t searchedLength(uint64_t fileLength) {
    return std::max(static_cast<int32_t>(static_cast<uint32_t>(fileLength)), 0);
}

bool FileSearch::search(const OpenFolder& folder, const std::string& path, bool listedAsFile,
                        const Matcher& matcher, const std::function<bool()>& cancelled,
                        Matcher::Hits& hits) {
    // Too long to be opened by whoever does not know the folder.
    if (path.size() >= PATH_MAX) return false;
    const char* name = folder.nameOf(path);
    struct stat facts;
    if (!listedAsFile) {
        if (fstatat(folder.descriptor(), name, &facts, 0) != 0 || S_ISDIR(facts.st_mode))
            return false;
        if (!S_ISREG(facts.st_mode)) return true;
    }
    int descriptor =
        openat(folder.descriptor(), name, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) return false;
    bool ask = !listedAsFile || folder.askLengths();
    bool whole =
        searchOpened(descriptor, ask ? lengthOf(descriptor) : unasked, matcher, cancelled, hits);
    close(descriptor);
    return whole;
}

bool FileSearch::searchOpened(int descriptor, int64_t length, const Matcher& matcher,
                              const std::function<bool()>& cancelled, Matcher::Hits& hits) {
    // What a name that straddles two pieces needs of the first one.
    size_t overlap = matcher.longestName() > 0 ? matcher.longestName() - 1 : 0;
    buffer_.resize(std::max(buffer_.size(), overlap + static_cast<size_t>(pieceSize)));
    size_t kept = 0;
    int64_t left = length == unasked ? pieceSize : length;
    while (left > 0) {
        if (cancelled()) return false;
        size_t wanted = static_cast<size_t>(std::min<int64_t>(left, pieceSize));
        ssize_t got = read(descriptor, buffer_.data() + kept, wanted);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        if (length == unasked && got == pieceSize) left = length = lengthOf(descriptor);
        got = std::min(got, left);
        size_t filled = kept + static_cast<size_t>(got);
        matcher.search({buffer_.data(), filled}, hits);
        left -= got;
        if (length == unasked) break;
        kept = std::min(filled, overlap);
        std::memmove(buffer_.data(), buffer_.data() + filled - kept, kept);
    }
    return true;
}

}  // namespace bracken
