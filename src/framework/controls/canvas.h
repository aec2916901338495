#pragma once

#include <optional>

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

    // Where a canvas that the user drags along a line may go, in the window's pixels, as a divider
    // does.
    struct Track {
        int min;
        int max;
        int position;
        // Left and right, else up and down.
        bool sideways;
    };
    // Nothing for one that stays where it is.
    virtual std::optional<Track> track() { return std::nullopt; }

    // Paints again: clear pixels of the control's size, then Event_Paint. Valid until the next
    // call.
    const Pixels& paint();

    // What the user did, handed in by the view. After a mouse down that was not claimed, or on a
    // hidden or disabled control, drag and up are dropped.
    void userEntered();
    void userPressed(int x, int y);
    void userDragged(int x, int y);
    void userReleased(int x, int y);
    // The same without a mouse, each as a drag of its own. A canvas without a track ignores them.
    void userMovedTo(int position);
    // Moves it by `pixels`, or by as many times that as it takes to get away from where it is.
    void userStepped(int pixels);

  private:
    void drag(const Track& track, int pixels);

    Pixels pixels_;
    bool claimed_ = false;
};

}  // namespace bracken
