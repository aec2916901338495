#include "platform/qt/views.h"

#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <utility>

#include "framework/windows/windows.h"

namespace bracken {

namespace {

// Milliseconds between two frames, at least.
constexpr int frameTime = 16;

}  // namespace

Views::~Views() = default;

void Views::requestFrame() {
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

void Views::bringToFront(Window& window) {
    toFront_.push_back(std::static_pointer_cast<Window>(window.shared_from_this()));
    requestFrame();
}

QWidget* Views::front() {
    frame();
    Window* window = Windows::get().front();
    return window != nullptr ? viewOf(*window) : nullptr;
}

void Views::customEvent(QEvent* /*event*/) {
    if (untilFrame_.isActive()) return;
    qint64 wait = sinceFrame_.isValid() ? frameTime - sinceFrame_.elapsed() : 0;
    if (wait <= 0)
        frame();
    else
        untilFrame_.start(static_cast<int>(wait), Qt::PreciseTimer, this);
}

void Views::timerEvent(QTimerEvent* /*event*/) {
    untilFrame_.stop();
    frame();
}

void Views::frame() {
    sinceFrame_.start();
    beginFrame();
    dropClosed();
    addOpened();
    for (auto& view : views_) view->sync();
    for (auto& window : std::exchange(toFront_, {})) {
        auto alive = window.lock();
        WindowView* view = alive == nullptr ? nullptr : viewOf(*alive);
        if (view != nullptr) view->bringToFront();
    }
    refreshMenus();
}

void Views::dropClosed() {
    auto gone = std::stable_partition(views_.begin(), views_.end(),
                                      [](auto& view) { return !view->model().closed(); });
    for (auto view = gone; view != views_.end(); ++view) {
        (*view)->hide();
        closed_.push_back(std::move(*view));
    }
    views_.erase(gone, views_.end());
}

void Views::addOpened() {
    for (auto& window : Windows::get().all())
        if (window->laidOut() && !window->closed() && viewOf(*window) == nullptr)
            views_.push_back(std::make_unique<WindowView>(window));
}

WindowView* Views::viewOf(const Window& window) const {
    for (auto& view : views_)
        if (&view->model() == &window) return view.get();
    return nullptr;
}

void Views::refreshMenus() {
    auto* active = dynamic_cast<WindowView*>(QApplication::activeWindow());
    if (active != nullptr && !active->model().closed()) active->refreshMenus();
}

void Views::destroyClosed() {
    // Not destroyed here: the toolkit may be on its way back from one of them.
    for (auto& view : std::exchange(closed_, {})) view.release()->deleteLater();
}

void Views::clear() {
    views_.clear();
    closed_.clear();
}

}  // namespace bracken
