#pragma once

#include "framework/controls/control.h"

// What a splitter takes a control for, by the control's class, locks and scroll bars: the rules
// that spare a window's author from saying anything. `vertical` is the splitter's orientation.
namespace bracken::suggest {

// Pixels along the splitter's axis below which the control is better hidden.
int minSizeControlShouldBeVisible(const RectControl& control, bool vertical);

// Pixels that the control asks to be kept for it.
int offsetSizeForControl(const RectControl& control, bool vertical);

// Whether the control's extent follows the splitter.
bool whetherControlShouldResize(const RectControl& control, bool vertical);

// Whether it is of a kind that others lie in.
bool controlCommonlyHasEmbeddedControls(const RectControl& control);

}  // namespace bracken::suggest
