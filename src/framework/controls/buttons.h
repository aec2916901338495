#pragma once

#include <functional>

#include "framework/controls/control.h"

namespace bracken {

// A button that starts something.
class PushButton : public RectControl {
  public:
    PushButton(WindowContent& window, std::string name);

    Property<std::string> Caption;
    // Whether Return presses it, while no other button has the focus.
    Property<bool> Default;
    // Shown under the mouse; "" for nothing.
    Property<std::string> toolTip;

    std::function<void()> Action;

    // Pressed by mouse or key; does nothing on a disabled or hidden button.
    void userPressed();
};

// A box with a caption, ticked or not.
class CheckBox : public RectControl {
  public:
    CheckBox(WindowContent& window, std::string name);

    Property<std::string> Caption;
    Property<bool> Value;

    // The user has toggled it.
    std::function<void()> Action;

    void userToggled(bool value);
};

// One choice of the several that share its container.
class RadioButton : public RectControl {
  public:
    RadioButton(WindowContent& window, std::string name);

    // Setting it clears the others.
    Property<bool> Value;

  private:
    void clearOthers();
};

}  // namespace bracken
