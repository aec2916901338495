#include "platform/qt/canvas_view.h"

#include <QMouseEvent>
#include <QPainter>

#include "framework/windows/event.h"

namespace bracken {

namespace {

// Pixels that an arrow key moves a canvas by.
constexpr int keyStep = 10;

Qt::CursorShape shapeOf(Cursor cursor) {
    switch (cursor) {
        case Cursor::splitterEastWest:
            return Qt::SplitHCursor;
        case Cursor::splitterNorthSouth:
            return Qt::SplitVCursor;
        default:
            return Qt::ArrowCursor;
    }
}

// What an arrow key moves it by; 0 for another key, and for arrows across its track.
int stepOf(int key, const Canvas::Track& track) {
    if (key == (track.sideways ? Qt::Key_Left : Qt::Key_Up)) return -keyStep;
    return key == (track.sideways ? Qt::Key_Right : Qt::Key_Down) ? keyStep : 0;
}

}  // namespace

CanvasView::CanvasView(Canvas& model, QWidget* parent)
    : QWidget(parent), ControlView(model, *this), model_(model) {
    setAttribute(Qt::WA_TransparentForMouseEvents, !model.TakesMouse);
    if (model.track()) setFocusPolicy(Qt::TabFocus);
}

void CanvasView::sync() {
    setCursor(shapeOf(model_.MouseCursor));
    // Where nothing of it is left to see, the Tab key passes it.
    bool reachable = model_.track() && parentWidget()->rect().intersects(geometry());
    setFocusPolicy(reachable ? Qt::TabFocus : Qt::NoFocus);
    update();
}

void CanvasView::paintEvent(QPaintEvent* /*event*/) {
    if (hasFocus()) QPainter(this).fillRect(rect(), palette().highlight());
    const Pixels& pixels = model_.paint();
    if (pixels.argb.empty()) return;
    QImage image(reinterpret_cast<const uchar*>(pixels.argb.data()), pixels.width, pixels.height,
                 QImage::Format_ARGB32);
    QPainter(this).drawImage(0, 0, image);
}

QPoint CanvasView::place(const QMouseEvent& event) const {
    return mapToParent(event.position().toPoint()) - QPoint(model_.Left, model_.Top);
}

void CanvasView::enterEvent(QEnterEvent* /*event*/) {
    handleEvent([this] { model_.userEntered(); });
}

void CanvasView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    QPoint at = place(*event);
    handleEvent([this, at] { model_.userPressed(at.x(), at.y()); });
}

void CanvasView::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton)) return;
    QPoint at = place(*event);
    handleEvent([this, at] { model_.userDragged(at.x(), at.y()); });
}

void CanvasView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    QPoint at = place(*event);
    handleEvent([this, at] { model_.userReleased(at.x(), at.y()); });
}

void CanvasView::keyPressEvent(QKeyEvent* event) {
    const auto track = model_.track();
    const int step = track ? stepOf(event->key(), *track) : 0;
    if (step == 0)
        QWidget::keyPressEvent(event);
    else
        handleEvent([this, step] { model_.userStepped(step); });
}

// Of a change of its window's activation a widget is told only while it is visible.
bool CanvasView::event(QEvent* event) {
    bool telling = event->type() == QEvent::WindowActivate ||
                   event->type() == QEvent::WindowDeactivate || event->type() == QEvent::Show;
    if (telling) model_.Active = isActiveWindow();
    return QWidget::event(event);
}

}  // namespace bracken
