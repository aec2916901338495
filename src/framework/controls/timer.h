#pragma once

#include "framework/controls/control.h"

namespace bracken {

// A timer that is off: its owner never switches it on.
class Timer : public Control {
  public:
    using Control::Control;

    // 0: off.
    int Mode = 0;
    // Milliseconds.
    int Period = 1000;
};

}  // namespace bracken
