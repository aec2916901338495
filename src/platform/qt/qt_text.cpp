#include "platform/qt/qt_text.h"

#include <QUtf8StringView>
#include <algorithm>

namespace bracken {

namespace {

// The longest encoding of a UTF-16 unit, in bytes.
constexpr int64_t bytesPerUnit = 3;
// The sign for what cannot be shown; every font has it.
constexpr char16_t replacement = 0xfffd;

bool isUtf8(std::string_view bytes) {
    return QUtf8StringView(bytes.data(), static_cast<qsizetype>(bytes.size())).isValidUtf8();
}

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

QString shown(std::string_view bytes) {
    auto size = static_cast<qsizetype>(bytes.size());
    return isUtf8(bytes) ? QString::fromUtf8(bytes.data(), size)
                         : QString::fromLatin1(bytes.data(), size);
}

QString shownStart(std::string_view bytes, int limit) {
    QString text = shown(cut(bytes, static_cast<size_t>(limit * bytesPerUnit)));
    if (text.size() <= limit) return text;
    return text.left(text.at(limit).isLowSurrogate() ? limit - 1 : limit);
}

std::string bytesOf(const QString& text) {
    return text.toStdString();
}

QString shownCaption(std::string_view bytes) {
    return shown(bytes).replace(u'&', QStringLiteral("&&"));
}

QString harmless(const QString& text) {
    return replaceControls(text, false);
}

QString harmlessLine(const QString& text) {
    return replaceControls(text, true);
}

int toShownPosition(std::string_view bytes, int64_t position) {
    auto size = static_cast<int64_t>(bytes.size());
    int64_t at = position < 0 ? size : std::min(position, size);
    if (!isUtf8(bytes)) return static_cast<int>(at);
    std::string_view before = cut(bytes, static_cast<size_t>(at));
    return static_cast<int>(
        QString::fromUtf8(before.data(), static_cast<qsizetype>(before.size())).size());
}

int64_t toBytePosition(std::string_view bytes, int position) {
    auto size = static_cast<int64_t>(bytes.size());
    if (position < 0) return size;
    if (!isUtf8(bytes)) return std::min<int64_t>(position, size);
    QString text = shown(bytes);
    if (position >= text.size()) return size;
    bool inside = text.at(position).isLowSurrogate();
    return text.left(inside ? position - 1 : position).toUtf8().size();
}

}  // namespace bracken
