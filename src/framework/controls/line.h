#pragma once

#include "framework/controls/control.h"

namespace bracken {

// A straight stroke across its own box.
class Line : public RectControl {
  public:
    using RectControl::RectControl;
};

}  // namespace bracken
