#include "platform/qt/qt_text.h"

#include <QUtf8StringView>

namespace bracken {

namespace {

// The longest encoding of a UTF-16 unit, in bytes.
constexpr size_t bytesPerUnit = 3;
// The sign for what cannot be shown; every font has it.
constexpr char16_t replacement = 0xfffd;

bool continues(char byte) {
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
}

// The start of `bytes` up to `size`, not cutting a character of UTF-8 in two.
std::string_view cut(std::string_view bytes, size_t size) {
    if (size >= bytes.size()) return bytes;
    size_t end = size;
    while (end > 0 && size - end < 4 && continues(bytes[end])) end--;
    return bytes.substr(0, continues(bytes[end]) ? size : end);
}

QString replaceControls(QString text, bool lineOnly) {
    for (QChar& sign : text) {
        char16_t code = sign.unicode();
        bool layout = code == u'\n' || code == u'\t' || code == u'\r';
        if (layout && lineOnly)
            sign = u' ';
        else if ((code < 0x20 && !layout) || code == 0x7f)
            sign = QChar(replacement);
    }
    return text;
}

}  // namespace

bool isUtf8(std::string_view bytes) {
    return QUtf8StringView(bytes.data(), static_cast<qsizetype>(bytes.size())).isValidUtf8();
}

QString toQString(std::string_view bytes) {
    auto size = static_cast<qsizetype>(bytes.size());
    return isUtf8(bytes) ? QString::fromUtf8(bytes.data(), size)
                         : QString::fromLatin1(bytes.data(), size);
}

QString toQStringStart(std::string_view bytes, int limit) {
    QString text = toQString(cut(bytes, static_cast<size_t>(limit) * bytesPerUnit));
    if (text.size() <= limit) return text;
    return text.left(text.at(limit).isLowSurrogate() ? limit - 1 : limit);
}

std::string bytesOf(const QString& text) {
    return text.toStdString();
}

QString captionText(std::string_view bytes) {
    return toQString(bytes).replace(u'&', QStringLiteral("&&"));
}

QString withoutControls(const QString& text) {
    return replaceControls(text, false);
}

QString withoutLineControls(const QString& text) {
    return replaceControls(text, true);
}

}  // namespace bracken
