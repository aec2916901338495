#pragma once

#include "framework/controls/buttons.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/plain_controls.h"
#include "framework/windows/window.h"

namespace bracken {

// The window in which the user enters the extension list.
class winPreferences : public Window {
  public:
    StaticText StaticText1{*this, "StaticText1"};
    EditField EditField1{*this, "EditField1"};
    PushButton butSave{*this, "butSave"};
    PushButton butCancel{*this, "butCancel"};

  protected:
    void Layout() override;
    void CreateControls() override;
    void Event_Open() override;

  private:
    void _CreateControls0();
    void butSave_Action();
    void butCancel_Action();
};

// The open preferences window, made if there is none.
class winPreferences& winPreferences();

}  // namespace bracken
