#pragma once

#include <QWidget>

#include "framework/controls/control.h"
#include "platform/qt/control_view.h"

namespace bracken {

// Makes the view of a control as a child of `parent`, which owns it; null for a control that shows
// nothing. The one place that knows which class of views goes with which control.
ControlView* makeView(Control& control, QWidget* parent);

}  // namespace bracken
