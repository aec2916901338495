#include "platform/qt/control_view.h"

#include <algorithm>

#include "platform/qt/qt_text.h"

namespace bracken {

ControlView::ControlView(RectControl& control, QWidget& widget)
    : control_(control), widget_(widget) {
    widget.setObjectName(shown(control.name()));
}

void ControlView::takeOver(const QRect& content) {
    QRect place(control_.Left, control_.Top, std::max<int>(control_.Width, 0),
                std::max<int>(control_.Height, 0));
    widget_.setGeometry(place);
    widget_.setEnabled(control_.Enabled);
    sync();
    widget_.setVisible(control_.showing() && place.intersects(content));
}

}  // namespace bracken
