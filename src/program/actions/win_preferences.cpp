#include "program/actions/win_preferences.h"

#include "framework/windows/windows.h"
#include "program/app.h"

namespace bracken {

class winPreferences& winPreferences() {
    return Windows::get().instance<class winPreferences>();
}

bool App::_Preferences_Action() {
    winPreferences().Show();
    return true;
}

void winPreferences::Layout() {
    Title = "Preferences";
    Width = 566;
    Height = 142;
    Resizeable = false;
    MaximizeButton = false;
}

void winPreferences::CreateControls() {
    _CreateControls0();
}

void winPreferences::_CreateControls0() {
    StaticText1.place(14, 9, 532, 63);
    StaticText1.Caption =
        "By default, all files are searched. However you can change this by entering the "
        "extensions "
        "of the files you would like searched below. Separate each extension with a comman.  For "
        "example: php,cgi";
    StaticText1.MultiLine = true;
    EditField1.place(14, 66, 521, 22);
    butSave.place(459, 102, 80, 20);
    butSave.Caption = "Save";
    butSave.Default = true;
    butCancel.place(361, 102, 80, 20);
    butCancel.Caption = "Cancel";
    StaticText1.TabIndex = 0;
    EditField1.TabIndex = 1;
    butSave.TabIndex = 2;
    butCancel.TabIndex = 3;
    butSave.Action = [this] { butSave_Action(); };
    butCancel.Action = [this] { butCancel_Action(); };
}

void winPreferences::Event_Open() {
    EditField1.Text = App().prefs->root->GetString("extensions", "");
}

void winPreferences::butSave_Action() {
    App().prefs->root->SetString("extensions", EditField1.Text);
    App().prefs->Save();
    Close();
}

void winPreferences::butCancel_Action() {
    Close();
}

}  // namespace bracken
