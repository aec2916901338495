#pragma once

#include "framework/controls/control.h"

namespace bracken {

// A frame around the controls that it holds.
class GroupBox : public RectControl {
  public:
    using RectControl::RectControl;
};

}  // namespace bracken
