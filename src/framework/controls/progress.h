#pragma once

#include "framework/controls/control.h"

namespace bracken {

// A bar. Value counts from 0 to Maximum; -1 stands for work of unknown length, and with a Maximum
// of 0 the bar is empty.
class ProgressBar : public RectControl {
  public:
    ProgressBar(WindowContent& window, std::string name)
        : RectControl(window, std::move(name)), Value(*this, 0), Maximum(*this, 0) {}

    Property<int> Value;
    Property<int> Maximum;
};

// A wheel that turns while it is visible.
class ProgressWheel : public RectControl {
  public:
    using RectControl::RectControl;
};

}  // namespace bracken
