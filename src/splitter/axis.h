#pragma once

#include <cstdint>

#include "framework/controls/control.h"
#include "framework/controls/window_content.h"

namespace bracken {

// A coordinate axis of a window. Code written on an Axis serves both orientations of a splitter.
class Axis {
  public:
    // Left and Width: a vertical splitter moves along it.
    static const Axis& x() {
        static const Axis axis(&RectControl::Left, &RectControl::Width, &RectControl::LockLeft,
                               &RectControl::LockRight, &WindowContent::Width);
        return axis;
    }
    // Top and Height: a horizontal splitter moves along it.
    static const Axis& y() {
        static const Axis axis(&RectControl::Top, &RectControl::Height, &RectControl::LockTop,
                               &RectControl::LockBottom, &WindowContent::Height);
        return axis;
    }

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
    using Length = Property<int> RectControl::*;
    using Lock = bool RectControl::*;

    constexpr Axis(Length position, Length extent, Lock nearLock, Lock farLock,
                   Property<int> WindowContent::*size)
        : position_(position),
          extent_(extent),
          nearLock_(nearLock),
          farLock_(farLock),
          size_(size) {}

    Length position_;
    Length extent_;
    Lock nearLock_;
    Lock farLock_;
    Property<int> WindowContent::*size_;
};

}  // namespace bracken
