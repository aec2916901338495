#include "framework/files/text_output_stream.h"

#include <utility>

namespace bracken {

TextOutputStream::TextOutputStream(std::unique_ptr<ReplacingFile> file) : file_(std::move(file)) {}

void TextOutputStream::Write(std::string_view text) {
    if (file_) file_->write(text);
}

void TextOutputStream::WriteLine(std::string_view text) {
    Write(text);
    Write("\n");
}

bool TextOutputStream::Close() {
    const bool written = file_ && file_->commit();
    file_.reset();
    return written;
}

}  // namespace bracken
