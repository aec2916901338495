#include "platform/qt/window_view.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QWindow>
#include <algorithm>

#include "framework/windows/application.h"
#include "framework/windows/event.h"
#include "framework/windows/windows.h"
#include "platform/qt/accessible_views.h"
#include "platform/qt/fitted_text.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/view_factory.h"

namespace bracken {

WindowView::WindowView(std::shared_ptr<Window> window)
    : window_(std::move(window)),
      content_(new QWidget(this)),
      frame_(new WindowFrame(*window_, *this)) {
    setFlags();
    makeMenuBar();
    content_->setFont(layoutFont());
    makeControls();
}

WindowView::~WindowView() {
    // The controls' views go before the model does.
    delete content_;
}

void WindowView::setFlags() {
    Qt::WindowFlags flags =
        Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
    flags.setFlag(Qt::WindowCloseButtonHint, window_->CloseButton);
    flags.setFlag(Qt::WindowMinimizeButtonHint, window_->MinimizeButton);
    flags.setFlag(Qt::WindowMaximizeButtonHint, window_->MaximizeButton);
    if (window_->Frame == FrameKind::modalDialog) {
        flags |= Qt::Dialog;
        setWindowModality(Qt::ApplicationModal);
    }
    setWindowFlags(flags);
}

void WindowView::makeMenuBar() {
    auto& model = Application::current()->MenuBar;
    if (!window_->MenuBarVisible || model == nullptr) return;
    menuBar_ = new MenuBarView(*model, *window_, this);
    menuBar_->ensurePolished();
}

void WindowView::makeControls() {
    for (Control* control : window_->controls()) {
        ControlView* view = makeView(*control, content_);
        if (view != nullptr) controls_.push_back(view);
    }
    setTabOrderOfControls();
}

void WindowView::setTabOrderOfControls() {
    std::vector<std::pair<int, QWidget*>> order;
    for (size_t place = 0; place < controls_.size(); place++) {
        int index = controls_[place]->control().TabIndex;
        QWidget& widget = controls_[place]->widget();
        if (widget.focusPolicy() != Qt::NoFocus)
            order.emplace_back(index >= 0 ? index : static_cast<int>(place), &widget);
    }
    std::stable_sort(order.begin(), order.end(),
                     [](auto& a, auto& b) { return a.first < b.first; });
    for (size_t at = 1; at < order.size(); at++)
        setTabOrder(order[at - 1].second, order[at].second);
}

int WindowView::menuHeight() const {
    return menuBar_ == nullptr ? 0 : menuBar_->sizeHint().height();
}

void WindowView::sync() {
    bool windowChanged = window_->takeDirty() || fresh_;
    if (windowChanged) syncWindow();
    QRect content(0, 0, window_->Width, window_->Height);
    for (ControlView* view : controls_)
        if (view->control().takeDirty() || windowChanged) view->showModel(content);
    if (fresh_) refreshMenus();
    fresh_ = false;
    if (windowChanged) showAsModel();
}

void WindowView::syncWindow() {
    setWindowTitle(withoutLineControls(toQString(window_->Title.get())));
    frame_->setMenuHeight(menuHeight());
    frame_->apply();
    for (ControlView* view : controls_) {
        QWidget& widget = view->widget();
        bool captioned = dynamic_cast<QAbstractButton*>(&widget) != nullptr;
        if (widget.focusPolicy() != Qt::NoFocus && !captioned) nameControl(widget, view->control());
    }
}

void WindowView::nameControl(QWidget& widget, const RectControl& control) {
    const bool own = !control.accessibleName.empty();
    widget.setAccessibleName(toQString(own ? control.accessibleName : window_->Title.get()));
    const StaticText* label = own ? nullptr : labelOf(control);
    if (label == nullptr) return;
    widget.setAccessibleName(toQString(label->Caption.get()));
    for (ControlView* view : controls_) {
        auto* shown = dynamic_cast<QLabel*>(&view->widget());
        // Of a label with a buddy the toolkit takes an ampersand for a mnemonic.
        if (&view->control() == label && !shown->text().contains(u'&')) shown->setBuddy(&widget);
    }
}

void WindowView::showAsModel() {
    bool visible = window_->Visible;
    if (visible == isVisible()) return;
    QWidget* below = isModal() ? QApplication::activeWindow() : nullptr;
    if (below != nullptr) {
        winId();
        windowHandle()->setTransientParent(below->windowHandle());
    }
    setVisible(visible);
    if (visible) windowHandle()->installEventFilter(this);
}

void WindowView::bringToFront() {
    if (!window_->Visible) return;
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

void WindowView::refreshMenus() {
    if (menuBar_ != nullptr) menuBar_->refresh();
}

bool WindowView::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate && !window_->closed()) {
        Windows::get().toFront(*window_);
        refreshMenus();
    }
    return QWidget::event(event);
}

bool WindowView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Expose && windowHandle()->isExposed())
        QCoreApplication::postEvent(frame_, new QEvent(QEvent::User));
    return QWidget::eventFilter(watched, event);
}

void WindowView::closeEvent(QCloseEvent* event) {
    // The view goes with the next frame, once the model has closed.
    event->ignore();
    handleAction([this] { window_->userClosed(); });
}

void WindowView::resizeEvent(QResizeEvent* /*event*/) {
    int top = menuHeight();
    if (menuBar_ != nullptr) menuBar_->setGeometry(0, 0, width(), top);
    content_->setGeometry(0, top, width(), std::max(height() - top, 0));
    frame_->geometryChanged();
}

void WindowView::moveEvent(QMoveEvent* /*event*/) {
    frame_->geometryChanged();
}

void WindowView::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QWidget::keyPressEvent(event);
        return;
    }
    handleAction([this] { window_->userPressedReturn(); });
}

}  // namespace bracken
