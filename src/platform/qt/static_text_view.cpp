#include "platform/qt/static_text_view.h"

#include <QPainter>
#include <QTextOption>

#include "platform/qt/fitted_font.h"
#include "platform/qt/qt_text.h"

namespace bracken {

StaticTextView::StaticTextView(StaticText& model, QWidget* parent)
    : QLabel(parent), ControlView(model, *this), model_(model) {
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | (model.MultiLine ? Qt::AlignTop : Qt::AlignVCenter));
}

void StaticTextView::sync() {
    setText(withoutControls(toQString(model_.Caption.get())));
}

void StaticTextView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    QTextOption option(alignment());
    option.setWrapMode(model_.MultiLine ? QTextOption::WrapAtWordBoundaryOrAnywhere
                                        : QTextOption::NoWrap);
    QString visible = text();
    if (!model_.MultiLine) {
        painter.setFont(fittedFont(font(), visible, width()));
        visible = painter.fontMetrics().elidedText(visible, Qt::ElideRight, width());
    }
    painter.drawText(QRectF(rect()), visible, option);
}

}  // namespace bracken
