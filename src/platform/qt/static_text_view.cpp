#include "platform/qt/static_text_view.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>

#include "platform/qt/fitted_text.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/tip_text.h"

namespace bracken {

StaticTextView::StaticTextView(StaticText& model, QWidget* parent)
    : QLabel(parent), ControlView(model, *this), model_(model) {
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | (model.MultiLine ? Qt::AlignTop : Qt::AlignVCenter));
}

void StaticTextView::sync() {
    setText(withoutControls(toQString(model_.Caption.get())));
}

QStringList StaticTextView::lines(const QString& text, const QFont& font) const {
    return model_.MultiLine ? linesOf(text, font, width(), room(font)) : QStringList(text);
}

int StaticTextView::room(const QFont& font) const {
    return std::max(height() / QFontMetrics(font).lineSpacing(), 1);
}

bool StaticTextView::fits(const QString& text, const QFont& font) const {
    if (model_.MultiLine) return lines(text, font).size() <= room(font);
    return QFontMetrics(font).horizontalAdvance(text) <= width();
}

QFont StaticTextView::textFont() const {
    return fittedFont(font(), [this](const QFont& font) { return fits(text(), font); });
}

QString StaticTextView::visibleText() const {
    const QFont font = textFont();
    auto cut = [this](qsizetype size) {
        return model_.showsEnd ? u'\u2026' + text().right(size) : text().left(size) + u'\u2026';
    };
    if (fits(text(), font)) return text();
    qsizetype shown = 0;
    for (qsizetype tooMany = text().size(); tooMany - shown > 1;) {
        qsizetype middle = (shown + tooMany) / 2;
        (fits(cut(middle), font) ? shown : tooMany) = middle;
    }
    return cut(shown);
}

bool StaticTextView::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip)
        setToolTip(visibleText() == text() ? QString() : tipText(text(), *screen()));
    return QLabel::event(event);
}

void StaticTextView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.setFont(textFont());
    painter.drawText(rect(), static_cast<int>(alignment()),
                     lines(visibleText(), painter.font()).join(u'\n'));
}

}  // namespace bracken
