#include "platform/qt/control_view.h"

#include <algorithm>

#include "platform/qt/qt_text.h"

namespace bracken {

ControlView::ControlView(RectControl& control, QWidget& widget)
    : control_(control), widget_(widget) {
    widget.setObjectName(toQString(control.name()));
}

void ControlView::showModel(const QRect& content) {
    QRect place(control_.Left, control_.Top, std::max<int>(control_.Width, 0),
                std::max<int>(control_.Height, 0));
    widget_.setGeometry(place);
    widget_.setEnabled(control_.Enabled);
    sync();
    // Outside the window the keyboard must not reach it. What only the mouse can reach stays:
    // hidden, it would lose the drag that has led it there.
    bool reachable = widget_.focusPolicy() == Qt::NoFocus || place.intersects(content);
    widget_.setVisible(control_.showing() && reachable);
}

}  // namespace bracken
