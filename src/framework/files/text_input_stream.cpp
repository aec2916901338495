#include "framework/files/text_input_stream.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace bracken {

TextInputStream::TextInputStream(std::string text) : text_(std::move(text)) {}

std::string TextInputStream::ReadLine(std::nullptr_t) {
    const size_t start = at_;
    const size_t end = lineEnd();
    const bool pair = text_.compare(end, 2, "\r\n") == 0;
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

bool TextInputStream::EOF_() const {
    return at_ == text_.size();
}

void TextInputStream::Close() {
    at_ = text_.size();
}

}  // namespace bracken
