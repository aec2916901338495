#include "platform/qt/fitted_text.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetrics>
#include <QTextLayout>

namespace bracken {

namespace {

// Pixels of a line in a control 20 pixels high.
constexpr int lineHeight = 17;
constexpr int smallestFont = 8;

int pixelSize(const QFont& font) {
    return font.pixelSize() > 0 ? font.pixelSize() : QFontInfo(font).pixelSize();
}

}  // namespace

QFont layoutFont() {
    QFont font = QApplication::font();
    font.setPixelSize(pixelSize(font));
    while (QFontMetrics(font).height() > lineHeight && font.pixelSize() > smallestFont)
        font.setPixelSize(font.pixelSize() - 1);
    return font;
}

QFont fittedFont(const QFont& font, const std::function<bool(const QFont&)>& fits) {
    QFont fitted = font;
    int least = pixelSize(font) * 3 / 4;
    for (int size = pixelSize(font); size >= least; size--) {
        fitted.setPixelSize(size);
        if (fits(fitted)) return fitted;
    }
    return font;
}

QFont fittedFont(const QFont& font, const QString& text, int width) {
    return fittedFont(font, [&](const QFont& fitted) {
        return QFontMetrics(fitted).horizontalAdvance(text) <= width;
    });
}

QStringList linesOf(QString text, const QFont& font, int width, int most) {
    text.replace(u'\n', QChar(QChar::LineSeparator));
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    while (lines.size() <= most) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) break;
        line.setLineWidth(width);
        lines += text.mid(line.textStart(), line.textLength()).remove(QChar::LineSeparator);
    }
    layout.endLayout();
    return lines;
}

}  // namespace bracken
