#pragma once

#include "framework/controls/buttons.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/plain_controls.h"
#include "framework/controls/popup_menu.h"
#include "framework/database/database.h"
#include "framework/windows/window.h"
#include "program/menu_bar1.h"

namespace bracken {

// The first window: login, database, folder, start of a run. It grows as the user advances; what
// lies below its present height can't be reached yet.
class winLogin : public Window {
  public:
    StaticText StaticText1{*this, "StaticText1"};
    StaticText StaticText2{*this, "StaticText2"};
    EditField fldHost{*this, "fldHost"};
    EditField fldUserName{*this, "fldUserName"};
    StaticText StaticText3{*this, "StaticText3"};
    EditField fldPassword{*this, "fldPassword"};
    StaticText StaticText4{*this, "StaticText4"};
    CheckBox chkRemember{*this, "chkRemember"};
    PushButton butConnect{*this, "butConnect"};
    ProgressWheel ProgressWheel1{*this, "ProgressWheel1"};
    PopupMenu popChooseDatabase{*this, "popChooseDatabase"};
    PushButton butSelectFolder{*this, "butSelectFolder"};
    StaticText StaticText5{*this, "StaticText5"};
    StaticText lblCurrentFolder{*this, "lblCurrentFolder"};
    PushButton butGo{*this, "butGo"};

    // The menu bar that the window shows, and its items.
    class MenuBar* MenuBar = nullptr;
    MenuItem* EditMenu() const { return MenuBar->Child("EditMenu"); }
    PrefsMenuItem* Preferences() const;
    MenuItem* EditSelectAll() const { return MenuBar->Child("EditSelectAll"); }
    MenuItem* UntitledMenu0() const { return MenuBar->Child("UntitledMenu0"); }
    MenuItem* EditClear() const { return MenuBar->Child("EditClear"); }
    MenuItem* EditPaste() const { return MenuBar->Child("EditPaste"); }
    MenuItem* EditCopy() const { return MenuBar->Child("EditCopy"); }
    MenuItem* EditCut() const { return MenuBar->Child("EditCut"); }
    MenuItem* UntitledMenu1() const { return MenuBar->Child("UntitledMenu1"); }
    MenuItem* EditUndo() const { return MenuBar->Child("EditUndo"); }
    MenuItem* FileMenu() const { return MenuBar->Child("FileMenu"); }
    QuitMenuItem* FileQuit() const;
    MenuItem* FileClose() const { return MenuBar->Child("FileClose"); }

    // Connect is possible with a host and a user name.
    void CheckFields();

  protected:
    void Layout() override;
    void CreateControls() override;
    void Event_Open() override;

  private:
    void _CreateControls0();
    void placeLoginControls();
    void placeRunControls();

    void fldHost_TextChange();
    void fldUserName_TextChange();
    void butConnect_Action();
    void popChooseDatabase_Change();
    void butSelectFolder_Action();
    void butGo_Action();

    void storeLogin();
    // Fills the popup with the server's databases and gives the row of the one used last, else 0.
    int listDatabases(const Ref<DatabaseCursor>& cursor, const std::string& saved);
};

// The open login window, made if there is none.
class winLogin& winLogin();

}  // namespace bracken
