#pragma once

#include "framework/controls/plain_controls.h"

namespace bracken {

// The label that names a control without a caption: the one beside it, else the one right above it;
// null without any. Holding the baton.
const StaticText* labelOf(const RectControl& control);

}  // namespace bracken
