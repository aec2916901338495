#pragma once

#include <QEvent>
#include <QObject>

namespace bracken {

// Which events come from the user.

// Input of any kind, closing included; a painting, a timer or a resizing is none.
bool isInput(QEvent::Type type);
// A key event of Ctrl+Q.
bool isQuitKey(const QEvent& event);
// Whether the event belongs to the work of menus, which stay usable when all else does not.
bool isForMenus(const QObject& receiver, const QEvent& event);

}  // namespace bracken
