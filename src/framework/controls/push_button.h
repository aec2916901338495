#pragma once

#include <functional>

#include "framework/controls/control.h"

namespace bracken {

// A button.
class PushButton : public RectControl {
  public:
    PushButton(WindowContent& window, std::string name);

    Property<std::string> Caption;
    // Whether Return presses it.
    Property<bool> Default;

    std::function<void()> Action;

    // Pressed by mouse or key; nothing on a disabled or hidden button.
    void userPressed();
};

}  // namespace bracken
