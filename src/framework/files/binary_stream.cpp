#include "framework/files/binary_stream.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "framework/threads/without_baton.h"

namespace bracken {

namespace {

// Bytes between the descriptor's position and the file's end.
size_t bytesLeft(int descriptor) {
    struct stat facts;
    if (fstat(descriptor, &facts) != 0 || !S_ISREG(facts.st_mode)) return 0;
    const off_t at = lseek(descriptor, 0, SEEK_CUR);
    return at < facts.st_size ? static_cast<size_t>(facts.st_size - at) : 0;
}

std::string readUpTo(int descriptor, size_t count) {
    std::string bytes(std::min(count, bytesLeft(descriptor)), '\0');
    size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t got = read(descriptor, &bytes[filled], bytes.size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        filled += static_cast<size_t>(got);
    }
    bytes.resize(filled);
    return bytes;
}

}  // namespace

BinaryStream::BinaryStream(int descriptor) : descriptor_(descriptor) {}

BinaryStream::~BinaryStream() {
    Close();
}

std::string BinaryStream::Read(int32_t count, std::nullptr_t) {
    if (descriptor_ < 0 || count <= 0) return "";
    return withoutBaton(
        [this, count] { return readUpTo(descriptor_, static_cast<size_t>(count)); });
}

void BinaryStream::Close() {
    if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
}

}  // namespace bracken
