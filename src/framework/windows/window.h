#pragma once

#include <map>
#include <string>

#include "framework/controls/window_content.h"
#include "framework/windows/menu.h"

namespace bracken {

class PushButton;

// A window: its frame, its controls and its events. Classes of windows derive from it, hold their
// controls as members and set them up in Layout and CreateControls. Made and owned by Windows.
// Everything here is called holding the baton.
class Window : public WindowContent {
  public:
    Window();
    ~Window() override;

    // Place of the content area in pixels of the screen; a menu bar and decorations lie outside.
    // Any value is taken, also off screen.
    Property<std::string> Title;
    Property<int> Left;
    Property<int> Top;
    Property<bool> Visible;

    // What the user can do with the frame, sizes in pixels; set before the window opens.
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

    // Makes the window visible and frontmost, without blocking.
    void Show();
    // Makes it visible and returns once it has closed; until then the user can work with no other
    // window. For a window whose Frame is FrameKind::modalDialog, on the main thread.
    void ShowModal();
    // Runs Event_Close and removes the window from the open ones. The object lives until the event
    // that is being handled has ended.
    void Close();

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
    // Return, anywhere a control does not take it itself, as a button with the focus does.
    void userPressedReturn();

    virtual void Event_EnableMenuItems() {}

  protected:
    virtual void Layout() {}
    virtual void CreateControls() {}
    virtual void AddMenuHandlers() {}
    virtual void Event_Open() {}
    virtual void Event_Close() {}

    void addMenuHandler(const std::string& itemName, MenuItem::Handler handler);

  private:
    friend class Windows;
    // Sets the window up, opens it with this size, shows it. Where that is not the size of the
    // layout, the controls follow as when the user resizes.
    void setUp(int width, int height);

    std::map<std::string, MenuItem::Handler> menuHandlers_;
};

}  // namespace bracken
