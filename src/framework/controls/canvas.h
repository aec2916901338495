#pragma once

#include "framework/controls/control.h"
#include "framework/graphics/picture.h"

namespace bracken {

// Shapes of the mouse pointer.
enum class Cursor { standard, splitterEastWest, splitterNorthSouth };

// A control that draws itself, pixel by pixel, on a transparent background.
// Coordinates of its events are its own.
class Canvas : public RectControl {
  public:
    Canvas(WindowContent& window, std::string name);

    // False while its window is not the one that the user works in.
    Property<bool> Active;
    Property<Cursor> MouseCursor;
    // Whether a ring may mark it while it has the focus.
    bool UseFocusRing = true;
    // False lets the mouse through to what lies below.
    bool TakesMouse = true;
    // Draws on the pixels that paint gives.
    class Graphics Graphics;

    virtual void Event_MouseEnter() {}
    // True claims the mouse: drag and up events follow.
    virtual bool Event_MouseDown(int /*x*/, int /*y*/) { return false; }
    virtual void Event_MouseDrag(int /*x*/, int /*y*/) {}
    virtual void Event_MouseUp(int /*x*/, int /*y*/) {}
    virtual void Event_Paint(class Graphics& /*g*/) {}

    // Paints again: clear pixels of the control's size, then Event_Paint. Valid until the next
    // call.
    const Pixels& paint();

    // What the user did, handed in by the view. After a mouse down that was not claimed, or on a
    // hidden or disabled control, drag and up are dropped.
    void userEntered();
    void userPressed(int x, int y);
    void userDragged(int x, int y);
    void userReleased(int x, int y);

  private:
    Pixels pixels_;
    bool claimed_ = false;
};

}  // namespace bracken
