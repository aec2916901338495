#include "platform/qt/display_text.h"

#include <algorithm>

#include "platform/qt/qt_text.h"

namespace bracken {

namespace {

// UTF-16 units; a widget takes a line as one piece, and longer ones make it slow.
constexpr int longestLine = 5000;
constexpr char32_t controlPictures = 0x2400;
constexpr char32_t deletePicture = 0x2421;
constexpr char32_t replacement = 0xfffd;

// The widget takes some characters for its own marks.
char32_t displayable(char32_t code) {
    if (code == U'\n' || code == U'\t') return code;
    if (code < 0x20) return controlPictures + code;
    if (code == 0x7f) return deletePicture;
    if (code == 0x2028 || code == 0x2029) return U'\n';
    if ((code >= 0xfdd0 && code <= 0xfdef) || code == 0xfffc) return replacement;
    return code;
}

bool isPlain(char byte) {
    return byte >= 0x20 && byte < 0x7f;
}

// Bytes of a character of UTF-8, by its first one.
size_t lengthOf(unsigned char first) {
    if (first < 0x80) return 1;
    if (first < 0xe0) return 2;
    return first < 0xf0 ? 3 : 4;
}

}  // namespace

DisplayText::DisplayText(std::string_view bytes) : bytes_(bytes), isUtf8_(isUtf8(bytes)) {
    text_.reserve(static_cast<qsizetype>(bytes.size()));
    Place place;
    while (place.byte < bytes_.size()) {
        const char* from = bytes_.data() + place.byte;
        size_t plain = skipPlain(place, bytes_.size());
        if (plain > 0)
            text_.append(QLatin1StringView(from, static_cast<qsizetype>(plain)));
        else
            step(place, &text_);
    }
}

// Stops short of where a line may have to be broken.
size_t DisplayText::skipPlain(Place& place, size_t end) const {
    size_t limit = std::min(end - place.byte,
                            static_cast<size_t>(std::max(longestLine - 1 - place.column, 0)));
    size_t count = 0;
    while (count < limit && isPlain(bytes_[place.byte + count])) ++count;
    place.byte += count;
    place.unit += static_cast<int>(count);
    place.column += static_cast<int>(count);
    return count;
}

char32_t DisplayText::character(Place& place) const {
    auto first = static_cast<unsigned char>(bytes_[place.byte]);
    size_t length = isUtf8_ ? lengthOf(first) : 1;
    char32_t code = length == 1 ? first : first & (0x7fU >> length);
    for (size_t i = 1; i < length; ++i)
        code = code << 6 | (static_cast<unsigned char>(bytes_[place.byte + i]) & 0x3fU);
    place.byte += length;
    return code;
}

bool DisplayText::atLineEnd(size_t byte) const {
    return byte >= bytes_.size() || bytes_[byte] == '\n' || bytes_[byte] == '\r';
}

void DisplayText::step(Place& place, QString* out) const {
    char32_t code = character(place);
    if (code == U'\r') {
        if (place.byte < bytes_.size() && bytes_[place.byte] == '\n') ++place.byte;
        code = U'\n';
    }
    code = displayable(code);
    int units = QChar::requiresSurrogates(code) ? 2 : 1;
    if (out != nullptr) out->append(QChar::fromUcs4(code));
    place.unit += units;
    place.column = code == U'\n' ? 0 : place.column + units;
    if (place.column < longestLine || atLineEnd(place.byte)) return;
    if (out != nullptr) out->append(u'\n');
    ++place.unit;
    place.column = 0;
}

int DisplayText::positionOf(int64_t byte) {
    auto target = static_cast<size_t>(byte);
    if (last_.byte > target) last_ = Place();
    size_t end = std::min(target, bytes_.size());
    while (last_.byte < end) {
        if (skipPlain(last_, end) > 0) continue;
        Place next = last_;
        step(next, nullptr);
        if (next.byte > target) break;
        last_ = next;
    }
    return last_.unit;
}

}  // namespace bracken
