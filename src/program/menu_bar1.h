#pragma once

#include "framework/windows/menu.h"

namespace bracken {

// The one menu bar of the program.
class MenuBar1 : public MenuBar {
  public:
    MenuBar1();

  private:
    // The File menu and the Edit menu.
    void Untitled0();
    void Untitled1();
};

// Items of the application's menu bar by name.
PrefsMenuItem* Preferences();
MenuItem* FileClose();

}  // namespace bracken
