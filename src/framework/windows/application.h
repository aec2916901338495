#pragma once

#include <map>
#include <memory>
#include <string>

#include "framework/windows/menu.h"

namespace bracken {

// The one application object: the menu bar, the menus' enabling and dispatch, quitting. Main
// thread, holding the baton.
class Application {
  public:
    Application();
    virtual ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    // The registered application object; null before there is one.
    static Application* current();

    std::unique_ptr<class MenuBar> MenuBar;

    virtual void Event_Open() {}
    virtual void Event_EnableMenuItems() {}

    void addMenuHandler(const std::string& itemName, MenuItem::Handler handler);

    // Enables and disables the items for the window in front.
    void updateMenus();
    // An item was chosen by mouse or shortcut: updates the menus, and if the item is enabled runs
    // the front window's handler, else the application's, else the standard meaning of Close, Quit
    // and the Edit items.
    void userChoseMenu(const std::string& itemName);

    // Ends the program: kills the runs, closes the windows, leaves the event loop.
    void Quit();
    // Quits if no window is open and no run is alive.
    void quitIfNothingIsLeft();

  private:
    void doStandard(const MenuItem& item);

    std::map<std::string, MenuItem::Handler> handlers_;
};

}  // namespace bracken
