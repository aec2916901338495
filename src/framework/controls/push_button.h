#pragma once

#include <functional>

#include "framework/controls/control.h"

namespace bracken {

// A button.
class PushButton : public RectControl {
  public:
    PushButton(WindowContent& window, std::string name);

    Property<std::string> Caption;
    // Whether Return presses it, while no other button has the focus.
    Property<bool> Default;
    // Shown under the mouse; "" for nothing.
    Property<std::string> toolTip;

    std::function<void()> Action;

    // Pressed by mouse or key; nothing on a disabled or hidden button.
    void userPressed();
};

}  // namespace bracken
