#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "framework/files/file_calls.h"
#include "framework/files/replacing_file.h"

namespace bracken {

// The streams that FolderItem opens. Where a method takes a text encoding, there is none: the
// argument is nullptr.

// A file open for reading bytes. Blocking reads release the baton (threads/baton.h) while they
// wait, so any thread of the program may call this, holding the baton.
class BinaryStream {
  public:
    // No descriptor reads as empty.
    explicit BinaryStream(Descriptor file) : file_(std::move(file)) {}

    // The next `count` bytes, fewer at the end of the file and where reading breaks off; none for a
    // negative count.
    std::string Read(int32_t count, std::nullptr_t encoding);
    void Close() { file_.close(); }

  private:
    Descriptor file_;
};

// A text read line by line, without conversion. LF, CR and CRLF end a line; a last line with no end
// counts; after the last line end there is no empty line.
class TextInputStream {
  public:
    explicit TextInputStream(std::string text) : text_(std::move(text)) {}

    // The next line without its end; "" at the end of the stream.
    std::string ReadLine(std::nullptr_t encoding);
    // The rest.
    std::string ReadAll();
    bool EOF_() const { return at_ == text_.size(); }
    // From here on the stream is at its end.
    void Close() { at_ = text_.size(); }

  private:
    // Where the current line ends.
    size_t lineEnd();

    std::string text_;
    size_t at_ = 0;
    // The next line feed, kept until it is passed, so that a text without any is searched once.
    size_t lineFeed_ = 0;
};

// A text file being written. Close puts the new content in the place of the old, see ReplacingFile:
// - the target is whole at every moment, the old file until then and the new one after;
// - a stream destroyed without Close, as by an exception, leaves the target as it was;
// - a failed write shows at Close, which then leaves the old file;
// - the target's mode and, where the user may do that, its owner are kept;
// - a symbolic link is resolved first;
// - special files, and files whose folder allows no new one, are written in place.
// Writing and closing never release the baton.
class TextOutputStream {
  public:
    // `file` is not null.
    explicit TextOutputStream(std::unique_ptr<ReplacingFile> file) : file_(std::move(file)) {}

    void Write(std::string_view text);
    // The text and a line feed.
    void WriteLine(std::string_view text);
    // Whether the file now holds what was written. Later writes are ignored.
    bool Close();

  private:
    std::unique_ptr<ReplacingFile> file_;
};

}  // namespace bracken
