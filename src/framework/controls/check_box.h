#pragma once

#include "framework/controls/control.h"

namespace bracken {

// A box with a caption, ticked or not.
class CheckBox : public RectControl {
  public:
    CheckBox(Window& window, std::string name)
        : RectControl(window, std::move(name)), Caption(*this, ""), Value(*this, false) {}

    Property<std::string> Caption;
    Property<bool> Value;

    void userToggled(bool value) { Value = value; }
};

}  // namespace bracken
