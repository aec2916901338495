#pragma once

#include <QString>

#include "framework/controls/control.h"
#include "framework/windows/window.h"

namespace bracken {

// The name for screen readers of a control that has no caption: that of the label beside it, else
// of the one right above it, else the window's title. Holding the baton.
QString accessibleNameOf(const Window& window, const RectControl& control);

}  // namespace bracken
