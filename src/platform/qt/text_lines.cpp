#include "platform/qt/text_lines.h"

#include <QTextLayout>

namespace bracken {

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
