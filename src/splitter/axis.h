#pragma once

#include <cstdint>

#include "framework/controls/control.h"
#include "framework/controls/window_content.h"

namespace bracken {

// A direction in a window: what `Left`, `Width` and the rest are across it, `Top`, `Height` and the
// rest are down it. Code written on an Axis serves both orientations of a splitter.
class Axis {
  public:
    // The one that an upright splitter moves along.
    static const Axis& across();
    // The one that a lying splitter moves along.
    static const Axis& down();

    // The near edge of a control, and the distance from there to its far edge. All are read as 64
    // bits, so that sums of a few can't overflow.
    int64_t position(const RectControl& control) const { return control.*position_; }
    int64_t extent(const RectControl& control) const { return control.*extent_; }
    int64_t farEdge(const RectControl& control) const {
        return position(control) + extent(control);
    }
    int64_t size(const WindowContent& window) const { return window.*size_; }
    bool farLock(const RectControl& control) const { return control.*farLock_; }
    bool lockedAtBothEnds(const RectControl& control) const {
        return control.*nearLock_ && control.*farLock_;
    }

    void setPosition(RectControl& control, int64_t value) const {
        control.*position_ = static_cast<int32_t>(value);
    }
    void setExtent(RectControl& control, int64_t value) const {
        control.*extent_ = static_cast<int32_t>(value);
    }

  private:
    Axis() = default;

    Property<int> RectControl::*position_ = nullptr;
    Property<int> RectControl::*extent_ = nullptr;
    bool RectControl::*nearLock_ = nullptr;
    bool RectControl::*farLock_ = nullptr;
    Property<int> WindowContent::*size_ = nullptr;
};

}  // namespace bracken
