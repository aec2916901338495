#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "framework/controls/observable.h"

namespace bracken {

class WindowContent;

// Base of all controls: plain objects, members of their window, that hold the whole state and run
// with no window system. Coordinates are pixels of the window's content area.
class Control : public Observable {
  public:
    // Adds the control to `window`, which must outlive it; the order of creation is the tab
    // order.
    Control(WindowContent& window, std::string name);

    WindowContent& window() const { return window_; }
    const std::string& name() const { return name_; }

    // Its window opens, ahead of the window's own event; its window closes, after that event.
    virtual void Event_Open() {}
    virtual void Event_Close() {}

    // Its number among controls of one name; INT32_MIN for one that stands alone.
    int32_t Index = INT32_MIN;

  private:
    WindowContent& window_;
    std::string name_;
};

// A control with a place on its window.
class RectControl : public Control {
  public:
    // The container that a control lies in, null for the window; reads and assigns as a pointer.
    class ParentLink {
      public:
        explicit ParentLink(RectControl& child) : child_(child) {}
        ParentLink(const ParentLink&) = delete;
        ParentLink& operator=(const ParentLink&) = delete;
        ParentLink& operator=(RectControl* parent);
        operator RectControl*() const { return parent_; }
        RectControl* operator->() const { return parent_; }

      private:
        RectControl& child_;
        RectControl* parent_ = nullptr;
    };

    RectControl(WindowContent& window, std::string name);

    Property<int> Left;
    Property<int> Top;
    Property<int> Width;
    Property<int> Height;
    Property<bool> Visible;
    Property<bool> Enabled;

    // Sides of the window that the control's own sides keep their distance from. Opposite locks
    // stretch it; a lock to the right or bottom alone moves it.
    bool LockLeft = false;
    bool LockTop = false;
    bool LockRight = false;
    bool LockBottom = false;

    // Moving the parent moves this control.
    ParentLink Parent;
    // The page of its container that it lies on, where that has pages.
    int TabPanelIndex = 0;
    // Order for the Tab key; -1: that of creation.
    int TabIndex = -1;
    // What screen readers call one without a caption; empty: as the label beside it says, else as
    // the window's title.
    std::string accessibleName;

    void place(int left, int top, int width, int height);
    // Repaints the control with the next frame.
    void Refresh(bool eraseBackground);
    // Whether it can be seen on its window: it and all containers that it lies in are visible, and
    // on the page that shows.
    bool showing() const;
    // Whether the user can press or edit it.
    bool usable() const { return Enabled && showing(); }

  protected:
    // Whether a container shows this page.
    virtual bool showsPage(int /*page*/) const { return true; }
    // Marks the controls in it dirty, at any depth: they show and hide with it.
    void markContents();

  private:
    void moveContents(int dx, int dy);

    // Those whose Parent this is.
    std::vector<RectControl*> contents_;
};

}  // namespace bracken
