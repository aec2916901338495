#pragma once

#include <QString>
#include <cstdint>
#include <string_view>

namespace bracken {

// Text of several lines as a text widget can take it, UTF-16 with line feeds only: any line end
// becomes one, a control character its visible sign, and a line that is too long to be laid out as
// one is broken. Bytes are UTF-8 if all of them are, else Latin-1.
class DisplayText {
  public:
    // The bytes must outlive this.
    explicit DisplayText(std::string_view bytes);

    const QString& text() const { return text_; }
    // Where a byte stands in text(); inside a character, its start. Takes the time from the
    // position asked for before, so ask in ascending order.
    int positionOf(int64_t byte);

  private:
    // A place in the bytes and the same in the text.
    struct Place {
        size_t byte = 0;
        int unit = 0;
        // UTF-16 units since the line's start.
        int column = 0;
    };

    // Goes from `place` over plain letters that stand in both as they are, to `end` at most; how
    // many.
    size_t skipPlain(Place& place, size_t end) const;
    // One character on from `place`, appended to `out` if that is not null.
    void step(Place& place, QString* out) const;
    char32_t character(Place& place) const;
    bool atLineEnd(size_t byte) const;

    std::string_view bytes_;
    bool isUtf8_;
    QString text_;
    Place last_;
};

}  // namespace bracken
