#pragma once

#include <utility>

namespace bracken {

// An object that views show: dirty once it differs from what they have shown. Holding the baton.
class Observable {
  public:
    Observable() = default;
    virtual ~Observable() = default;
    Observable(const Observable&) = delete;
    Observable& operator=(const Observable&) = delete;

    // The first mark since the views looked requests a frame.
    void markDirty();
    // Whether it is dirty, which it is no longer afterwards. For the views.
    bool takeDirty() { return std::exchange(dirty_, false); }

  private:
    bool dirty_ = false;
};

// Asks the platform for a frame, unless one has been asked for that has not begun yet.
void requestFrame();
// A frame begins: what gets dirty from now on requests the next one.
void beginFrame();

}  // namespace bracken
