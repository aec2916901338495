#include "platform/qt/window_frame.h"

#include <algorithm>

#include "framework/windows/event.h"

namespace bracken {

namespace {

// Milliseconds.
constexpr int settlingTime = 300;

}  // namespace

WindowFrame::WindowFrame(Window& window, QWidget& view)
    : QObject(&view), window_(window), view_(view) {
    settling_.setSingleShot(true);
    settling_.setInterval(settlingTime);
    connect(&settling_, &QTimer::timeout, this, &WindowFrame::adopt);
}

QRect WindowFrame::wanted() const {
    return {window_.Left, window_.Top - menuHeight_, std::max<int>(window_.Width, 1),
            std::max<int>(window_.Height, 1) + menuHeight_};
}

void WindowFrame::setBounds() {
    QSize size = wanted().size();
    if (!window_.Resizeable) {
        view_.setFixedSize(size);
        return;
    }
    QSize least(window_.MinWidth, window_.MinHeight + menuHeight_);
    QSize most(window_.MaxWidth, window_.MaxHeight + menuHeight_);
    view_.setMinimumSize(least.boundedTo(size));
    view_.setMaximumSize(most.expandedTo(size));
}

void WindowFrame::apply() {
    QRect frame = wanted();
    if (frame != known_) set(frame);
}

void WindowFrame::set(const QRect& frame) {
    known_ = frame;
    settling_.start();
    setBounds();
    view_.setGeometry(frame);
}

void WindowFrame::customEvent(QEvent* /*event*/) {
    if (exposed_) return;
    exposed_ = true;
    if (view_.geometry() != known_) set(known_);
    settling_.start();
}

void WindowFrame::geometryChanged() {
    if (exposed_ && !settling_.isActive()) adopt();
}

void WindowFrame::adopt() {
    QRect frame = view_.geometry();
    if (frame == known_ || !view_.isVisible() || view_.isMinimized()) return;
    known_ = frame;
    handleEvent([&] {
        window_.userMoved(frame.left(), frame.top() + menuHeight_);
        if (window_.Resizeable) window_.userResized(frame.width(), frame.height() - menuHeight_);
    });
}

}  // namespace bracken
