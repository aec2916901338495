#pragma once

#include <cstddef>
#include <string>

namespace bracken {

// A text read line by line, without conversion. LF, CR and CRLF end a line; a last line with no end
// is delivered; no empty line stands behind the last line end.
class TextInputStream {
  public:
    explicit TextInputStream(std::string text);

    // The next line without its end; "" at the end of the stream. The argument stands for the text
    // encoding, of which there is none.
    std::string ReadLine(std::nullptr_t encoding);
    // All that is left.
    std::string ReadAll();
    bool EOF_() const;
    // From here on the stream is at its end.
    void Close();

  private:
    // Where the line at hand ends.
    size_t lineEnd();

    std::string text_;
    size_t at_ = 0;
    // The next line feed, known until it is passed, so that a text without any is searched once.
    size_t lineFeed_ = 0;
};

}  // namespace bracken
