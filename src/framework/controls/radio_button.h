#pragma once

#include "framework/controls/control.h"

namespace bracken {

// One choice of the several that share its container.
class RadioButton : public RectControl {
  public:
    RadioButton(WindowContent& window, std::string name);

    // Setting it takes the choice from the others.
    Property<bool> Value;
};

}  // namespace bracken
