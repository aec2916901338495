#pragma once

#include <functional>

#include "framework/controls/control.h"

namespace bracken {

// A box with a caption, ticked or not.
class CheckBox : public RectControl {
  public:
    CheckBox(WindowContent& window, std::string name)
        : RectControl(window, std::move(name)), Caption(*this, ""), Value(*this, false) {}

    Property<std::string> Caption;
    Property<bool> Value;

    // The user has toggled it.
    std::function<void()> Action;

    void userToggled(bool value) {
        Value = value;
        if (Action) Action();
    }
};

}  // namespace bracken
