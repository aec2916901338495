#include "framework/windows/application.h"
#include "program/login/win_login.h"

namespace bracken {

void winLogin::Layout() {
    Title = "Login";
    Width = 358;
    Height = 185;
    Resizeable = false;
    MaximizeButton = false;
    MenuBar = Application::current()->MenuBar.get();
}

void winLogin::CreateControls() {
    _CreateControls0();
}

void winLogin::_CreateControls0() {
    placeLoginControls();
    placeRunControls();
    fldHost.TextChange = [this] { fldHost_TextChange(); };
    fldUserName.TextChange = [this] { fldUserName_TextChange(); };
    butConnect.Action = [this] { butConnect_Action(); };
    popChooseDatabase.Change = [this] { popChooseDatabase_Change(); };
    butSelectFolder.Action = [this] { butSelectFolder_Action(); };
    butGo.Action = [this] { butGo_Action(); };
}

void winLogin::placeLoginControls() {
    StaticText1.place(13, 7, 332, 38);
    StaticText1.Caption = "First you will need to log into your MySQL database.";
    StaticText1.MultiLine = true;
    StaticText2.place(13, 57, 70, 20);
    StaticText2.Caption = "Host";
    fldHost.place(84, 57, 244, 22);
    fldUserName.place(84, 89, 244, 22);
    StaticText3.place(13, 89, 70, 20);
    StaticText3.Caption = "Username";
    fldPassword.place(84, 121, 244, 22);
    fldPassword.Password = true;
    StaticText4.place(13, 121, 70, 20);
    StaticText4.Caption = "Password";
    chkRemember.place(84, 153, 129, 20);
    chkRemember.Caption = "Remember Login";
    butConnect.place(231, 153, 80, 20);
    butConnect.Caption = "Connect";
    butConnect.Enabled = false;
    butConnect.Default = true;
    ProgressWheel1.place(318, 155, 16, 16);
    ProgressWheel1.Visible = false;
}

void winLogin::placeRunControls() {
    popChooseDatabase.place(13, 195, 315, 20);
    popChooseDatabase.accessibleName = "Database";
    butSelectFolder.place(84, 238, 186, 20);
    butSelectFolder.Caption = "Select Folder to Search";
    StaticText5.place(13, 270, 100, 20);
    StaticText5.Caption = "Current Folder";
    lblCurrentFolder.place(14, 294, 314, 49);
    lblCurrentFolder.Caption = "None";
    lblCurrentFolder.MultiLine = true;
    lblCurrentFolder.showsEnd = true;
    butGo.place(248, 362, 80, 20);
    butGo.Caption = "Go!";
    butGo.Enabled = false;
}

PrefsMenuItem* winLogin::Preferences() const {
    return dynamic_cast<PrefsMenuItem*>(MenuBar->Child("Preferences"));
}

QuitMenuItem* winLogin::FileQuit() const {
    return dynamic_cast<QuitMenuItem*>(MenuBar->Child("FileQuit"));
}

}  // namespace bracken
