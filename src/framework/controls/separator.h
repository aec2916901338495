#pragma once

#include "framework/controls/control.h"

namespace bracken {

// A rule between groups of controls, along its longer side.
class Separator : public RectControl {
  public:
    using RectControl::RectControl;
};

}  // namespace bracken
