#pragma once

#include <memory>
#include <string>
#include <vector>

#include "framework/controls/control.h"

namespace bracken {

// Kinds of a window's frame.
struct FrameKind {
    static constexpr int document = 0;
    static constexpr int modalDialog = 2;
    // Says only that the window's background is dark.
    static constexpr int dark = 9;
};

// A window's content area: its size, its controls, and how these follow when the size changes.
// Its frame on the screen and its lifetime are Window's. Holding the baton.
class WindowContent : public Observable, public std::enable_shared_from_this<WindowContent> {
  public:
    WindowContent();
    ~WindowContent() override;

    // Pixels. Any value is taken, also below the minimum.
    Property<int> Width;
    Property<int> Height;
    // Of FrameKind.
    int Frame = FrameKind::document;

    const std::vector<Control*>& controls() const { return controls_; }
    // Null if there is none of that name.
    Control* control(const std::string& name) const;
    // Repaints all controls with the next frame.
    void Refresh(bool eraseBackground);
    // Whether set-up is over, so that changes of size lay out the controls and fire events.
    bool laidOut() const { return laidOut_; }
    // A closed window gets no events of its controls any more.
    bool closed() const { return closed_; }

  protected:
    virtual void Event_Resized() {}

    // Both sizes at once, as one event.
    void resize(int width, int height);

    bool laidOut_ = false;
    bool closed_ = false;

  private:
    friend class Control;
    void layOut(int dx, int dy);

    // In the order of creation.
    std::vector<Control*> controls_;
};

}  // namespace bracken
