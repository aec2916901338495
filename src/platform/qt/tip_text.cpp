#include "platform/qt/tip_text.h"

#include <QFontMetrics>
#include <QStringList>
#include <QToolTip>
#include <algorithm>

#include "platform/qt/fitted_text.h"

namespace bracken {

namespace {

// Of the longest lines, in letters.
constexpr int lineLength = 100;

// Lets a line end after a comma.
QString breakable(QString text) {
    return text.replace(u',', QStringLiteral(",\u200b"));
}

}  // namespace

QString tipText(const QString& text, const QScreen& screen) {
    if (text.isEmpty()) return {};
    QFont font = QToolTip::font();
    QFontMetrics metrics(font);
    QSize room = screen.availableSize();
    int width = std::min(lineLength * metrics.averageCharWidth(), room.width() * 2 / 3);
    // It stands above or below the mouse.
    int most = std::max(room.height() / 2 / metrics.lineSpacing() - 2, 1);
    QStringList lines = linesOf(breakable(text), font, width, most);
    if (lines.size() > most) {
        lines.removeLast();
        lines.last() += u'\u2026';
    }
    for (QString& line : lines) line = line.toHtmlEscaped();
    return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(lines.join(u"<br>"));
}

}  // namespace bracken
