#include "platform/qt/input_events.h"

#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <iterator>

namespace bracken {

namespace {

constexpr QEvent::Type mouse[] = {
    QEvent::MouseButtonPress,
    QEvent::MouseButtonRelease,
    QEvent::MouseButtonDblClick,
    QEvent::MouseMove,
};

constexpr QEvent::Type others[] = {
    QEvent::KeyPress,
    QEvent::KeyRelease,
    QEvent::Wheel,
    QEvent::Shortcut,
    QEvent::ShortcutOverride,
    QEvent::Close,
    QEvent::ContextMenu,
    QEvent::TouchBegin,
    QEvent::TouchUpdate,
    QEvent::TouchEnd,
    QEvent::TouchCancel,
    QEvent::TabletMove,
    QEvent::TabletPress,
    QEvent::TabletRelease,
    QEvent::DragEnter,
    QEvent::DragMove,
    QEvent::DragLeave,
    QEvent::Drop,
    QEvent::InputMethod,
    QEvent::NativeGesture,
    QEvent::Gesture,
    QEvent::GestureOverride,
    QEvent::NonClientAreaMouseButtonPress,
};

template <size_t count>
bool contains(const QEvent::Type (&types)[count], QEvent::Type type) {
    return std::find(std::begin(types), std::end(types), type) != std::end(types);
}

}  // namespace

bool isInput(QEvent::Type type) {
    return contains(mouse, type) || contains(others, type);
}

bool isQuitKey(const QEvent& event) {
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::ShortcutOverride) return false;
    auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_Q && key.modifiers() == Qt::ControlModifier;
}

bool isForMenus(const QObject& receiver, const QEvent& event) {
    // The window system's windows only pass mouse events on to the widget under the mouse.
    bool widget = qobject_cast<const QMenu*>(&receiver) != nullptr ||
                  qobject_cast<const QMenuBar*>(&receiver) != nullptr;
    return contains(mouse, event.type()) && (receiver.isWindowType() || widget);
}

}  // namespace bracken
