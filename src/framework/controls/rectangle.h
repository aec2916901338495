#pragma once

#include "framework/controls/control.h"

namespace bracken {

// A framed box that may hold other controls.
class Rectangle : public RectControl {
  public:
    using RectControl::RectControl;
};

}  // namespace bracken
