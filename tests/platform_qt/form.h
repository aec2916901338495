#pragma once

#include "framework/controls/buttons.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/listbox.h"
#include "framework/controls/plain_controls.h"
#include "framework/controls/popup_menu.h"
#include "framework/windows/window.h"

namespace bracken::test {

// A window with a control of each kind, one below the other. `go` is the default button.
class Form : public Window {
  public:
    StaticText label{*this, "label"};
    EditField field{*this, "field"};
    StaticText note{*this, "note"};
    EditField password{*this, "password"};
    Listbox list{*this, "list"};
    PopupMenu popup{*this, "popup"};
    CheckBox box{*this, "box"};
    PushButton button{*this, "button"};
    PushButton go{*this, "go"};
    ProgressBar bar{*this, "bar"};
    ProgressWheel wheel{*this, "wheel"};

  protected:
    void Layout() override {
        Title = "Form";
        Width = 300;
        Height = 10 + 25 * static_cast<int>(controls().size());
    }
    void CreateControls() override {
        int top = 5;
        for (Control* control : controls()) {
            dynamic_cast<RectControl&>(*control).place(10, top, 238, 20);
            top += 25;
        }
        label.Caption = "Host";
        password.Password = true;
        popup.accessibleName = "Choice";
        go.Default = true;
        box.TabIndex = 2;
    }
};

}  // namespace bracken::test
