#include "splitter/axis.h"

namespace bracken {

const Axis& Axis::across() {
    static const Axis axis = [] {
        Axis made;
        made.position_ = &RectControl::Left;
        made.extent_ = &RectControl::Width;
        made.nearLock_ = &RectControl::LockLeft;
        made.farLock_ = &RectControl::LockRight;
        made.size_ = &WindowContent::Width;
        return made;
    }();
    return axis;
}

const Axis& Axis::down() {
    static const Axis axis = [] {
        Axis made;
        made.position_ = &RectControl::Top;
        made.extent_ = &RectControl::Height;
        made.nearLock_ = &RectControl::LockTop;
        made.farLock_ = &RectControl::LockBottom;
        made.size_ = &WindowContent::Height;
        return made;
    }();
    return axis;
}

}  // namespace bracken
