#pragma once

#include "framework/controls/control.h"

namespace bracken {

// A raised strip that other controls stand on.
class Placard : public RectControl {
  public:
    using RectControl::RectControl;
};

}  // namespace bracken
