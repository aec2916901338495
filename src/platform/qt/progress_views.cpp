#include "platform/qt/progress_views.h"

#include <QPainter>
#include <QPen>
#include <algorithm>

namespace bracken {

ProgressBarView::ProgressBarView(ProgressBar& model, QWidget* parent)
    : QProgressBar(parent), ControlView(model, *this), model_(model) {
    setTextVisible(false);
    setAccessibleName(QStringLiteral("Progress"));
}

void ProgressBarView::sync() {
    if (model_.Value == -1) {
        setRange(0, 0);
        return;
    }
    setRange(0, std::max<int>(model_.Maximum, 1));
    int present = std::clamp<int>(model_.Value, 0, std::max<int>(model_.Maximum, 0));
    if (present == value()) return;
    // Else the bar would paint itself at once, ahead of the frame's other changes.
    setUpdatesEnabled(false);
    setValue(present);
    setUpdatesEnabled(true);
}

namespace {

constexpr int spokes = 12;
// Milliseconds from one spoke to the next.
constexpr int pace = 80;

}  // namespace

ProgressWheelView::ProgressWheelView(ProgressWheel& model, QWidget* parent)
    : QWidget(parent), ControlView(model, *this) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleName(QStringLiteral("Busy"));
}

void ProgressWheelView::showEvent(QShowEvent* event) {
    turning_.start(pace, this);
    QWidget::showEvent(event);
}

void ProgressWheelView::hideEvent(QHideEvent* event) {
    turning_.stop();
    QWidget::hideEvent(event);
}

void ProgressWheelView::timerEvent(QTimerEvent* /*event*/) {
    spoke_ = (spoke_ + 1) % spokes;
    update();
}

void ProgressWheelView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(width() / 2.0, height() / 2.0);
    double radius = std::min(width(), height()) / 2.0;
    QColor colour = palette().color(QPalette::WindowText);
    painter.rotate(360.0 / spokes * spoke_);
    for (int age = 0; age < spokes; age++) {
        colour.setAlphaF(1.0F - 0.9F * static_cast<float>(age) / spokes);
        painter.setPen(QPen(colour, radius / 5, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(0, -radius * 0.5), QPointF(0, -radius * 0.85));
        painter.rotate(-360.0 / spokes);
    }
}

}  // namespace bracken
