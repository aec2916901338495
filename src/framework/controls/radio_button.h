#pragma once

#include "framework/controls/control.h"

namespace bracken {

// One choice of the several that share its container.
class RadioButton : public RectControl {
  public:
    RadioButton(Window& window, std::string name)
        : RectControl(window, std::move(name)), Caption(*this, ""), Value(*this, false) {}

    Property<std::string> Caption;
    Property<bool> Value;

    void userChose() { Value = true; }
};

}  // namespace bracken
