#include "program/actions/win_confirm.h"

#include "framework/windows/windows.h"
#include "program/app.h"

namespace bracken {

class winConfirm& winConfirm() {
    return Windows::get().instance<class winConfirm>();
}

bool winConfirm::init() {
    auto self = shared_from_this();
    ShowModal();
    return result;
}

void winConfirm::butYes_Action() {
    result = true;
    if (CheckBox1.Value) {
        App().prefs->root->SetBoolean("no warning", true);
        App().prefs->Save();
    }
    Close();
}

void winConfirm::butNO_Action() {
    Close();
}

void winConfirm::Layout() {
    Title = "Untitled";
    Width = 414;
    Height = 127;
    Frame = FrameKind::modalDialog;
    Resizeable = false;
    CloseButton = false;
    MinimizeButton = false;
    MaximizeButton = false;
    MenuBarVisible = false;
}

void winConfirm::CreateControls() {
    _CreateControls0();
}

void winConfirm::_CreateControls0() {
    StaticText1.place(16, 13, 378, 48);
    StaticText1.Caption =
        "This will launch your browser and display the results of the search. You can print from "
        "there. Do you wish to continue?";
    StaticText1.MultiLine = true;
    StaticText1.TabIndex = 0;
    butYes.place(317, 79, 80, 20);
    butYes.Caption = "Yes";
    butYes.Default = true;
    butYes.TabIndex = 1;
    butNO.place(215, 79, 80, 20);
    butNO.Caption = "No";
    butNO.TabIndex = 2;
    CheckBox1.place(16, 79, 176, 20);
    CheckBox1.Caption = "Don't ask me this again";
    CheckBox1.TabIndex = 3;
    butYes.Action = [this] { butYes_Action(); };
    butNO.Action = [this] { butNO_Action(); };
}

}  // namespace bracken
