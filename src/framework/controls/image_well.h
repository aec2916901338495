#pragma once

#include "framework/controls/control.h"

namespace bracken {

// A sunken frame for a picture.
class ImageWell : public RectControl {
  public:
    using RectControl::RectControl;
};

}  // namespace bracken
