#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "framework/controls/control.h"
#include "framework/controls/menu.h"

namespace bracken {

class PushButton;

// A window: its frame, its controls and its events. Classes of windows derive from it, hold their
// controls as members and set them up in Layout and CreateControls. Made and owned by Windows.
// Everything here is called holding the baton.
class Window : public Mirrored, public std::enable_shared_from_this<Window> {
  public:
    Window();
    ~Window() override;

    // Frame of the content area in pixels of the screen; a menu bar and decorations lie outside.
    // Any value is taken, also off screen or below the minimum.
    Property<std::string> Title;
    Property<int> Left;
    Property<int> Top;
    Property<int> Width;
    Property<int> Height;
    Property<bool> Visible;

    // Bounds and abilities of the user's resizing; set before the window opens.
    int MinWidth = 64;
    int MinHeight = 64;
    int MaxWidth = 32000;
    int MaxHeight = 32000;
    bool Resizeable = true;
    bool LiveResize = true;
    bool CloseButton = true;
    bool MaximizeButton = true;
    bool MinimizeButton = true;
    bool MenuBarVisible = true;
    // 0: the platform chooses where a new window goes.
    int Placement = 0;
    // 0: an ordinary document window; 2: a modal dialog.
    int Frame = 0;

    // Makes the window visible and frontmost, without blocking.
    void Show();
    // Makes it visible and returns once it has closed; until then the user can work with no other
    // window. For a window with Frame 2, on the main thread.
    void ShowModal();
    // Repaints all controls with the next frame.
    void Refresh(bool eraseBackground);
    // Runs Event_Close and takes the window off the open ones. The object lives on until the event
    // that is being handled has ended.
    void Close();
    bool closed() const { return closed_; }

    const std::vector<Control*>& controls() const { return controls_; }
    // Null if there is none of that name.
    Control* control(const std::string& name) const;
    // Whether set-up is over, so that changes of size lay out the controls and fire events.
    bool laidOut() const { return laidOut_; }

    // The enabled default button, null if there is none.
    PushButton* defaultButton() const;
    // Runs the window's handler of that menu item; false if it has none or the handler did not
    // handle it.
    bool handleMenu(const std::string& itemName);

    // What the user did, handed in by the view.
    void userMoved(int left, int top);
    void userResized(int width, int height);
    // The close box.
    void userClosed();
    // Return, anywhere a control does not take it itself.
    void userPressedReturn();

    virtual void Event_EnableMenuItems() {}

  protected:
    virtual void Layout() {}
    virtual void CreateControls() {}
    virtual void AddMenuHandlers() {}
    virtual void Event_Open() {}
    virtual void Event_Close() {}
    virtual void Event_Resized() {}

    void addMenuHandler(const std::string& itemName, MenuItem::Handler handler);

  private:
    friend class Control;
    friend class Windows;
    void enrol(Control& control);
    // Sets the window up, opens it, shows it.
    void open();
    void layOut(int dx, int dy);
    void layOutControls(int dx, int dy);

    std::vector<Control*> controls_;
    std::map<std::string, MenuItem::Handler> menuHandlers_;
    bool laidOut_ = false;
    bool closed_ = false;
};

}  // namespace bracken
