#pragma once

#include "framework/controls/control.h"

namespace bracken {

// A frame with a caption around the controls that it holds.
class GroupBox : public RectControl {
  public:
    GroupBox(WindowContent& window, std::string name)
        : RectControl(window, std::move(name)), Caption(*this, "") {}

    Property<std::string> Caption;
};

}  // namespace bracken
