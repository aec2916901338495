#include "framework/files/streams.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "framework/threads/without_baton.h"

namespace bracken {

namespace {

// Bytes between the descriptor's position and the file's end.
size_t bytesLeft(int descriptor) {
    struct stat status;
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return 0;
    off_t at = lseek(descriptor, 0, SEEK_CUR);
    return at < status.st_size ? static_cast<size_t>(status.st_size - at) : 0;
}

std::string readUpTo(int descriptor, size_t count) {
    std::string bytes(std::min(count, bytesLeft(descriptor)), '\0');
    size_t filled = 0;
    while (filled < bytes.size()) {
        ssize_t got = readSome(descriptor, &bytes[filled], bytes.size() - filled);
        if (got <= 0) break;
        filled += static_cast<size_t>(got);
    }
    bytes.resize(filled);
    return bytes;
}

}  // namespace

std::string BinaryStream::Read(int32_t count, std::nullptr_t) {
    if (!file_.isOpen() || count <= 0) return "";
    return withoutBaton([&] { return readUpTo(file_.get(), static_cast<size_t>(count)); });
}

std::string TextInputStream::ReadLine(std::nullptr_t) {
    size_t start = at_;
    size_t end = lineEnd();
    bool pair = text_.compare(end, 2, "\r\n") == 0;
    at_ = std::min(end + (pair ? 2 : 1), text_.size());
    return text_.substr(start, end - start);
}

size_t TextInputStream::lineEnd() {
    if (lineFeed_ <= at_) lineFeed_ = std::min(text_.find('\n', at_), text_.size());
    const char* start = text_.data() + at_;
    const void* carriageReturn = std::memchr(start, '\r', lineFeed_ - at_);
    if (carriageReturn == nullptr) return lineFeed_;
    return static_cast<size_t>(static_cast<const char*>(carriageReturn) - text_.data());
}

std::string TextInputStream::ReadAll() {
    return text_.substr(std::exchange(at_, text_.size()));
}

void TextOutputStream::Write(std::string_view text) {
    if (file_) file_->write(text);
}

void TextOutputStream::WriteLine(std::string_view text) {
    Write(text);
    Write("\n");
}

bool TextOutputStream::Close() {
    bool written = file_ && file_->commit();
    file_.reset();
    return written;
}

}  // namespace bracken
