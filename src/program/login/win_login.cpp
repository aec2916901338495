#include "program/login/win_login.h"

#include "framework/dialogs/dialogs.h"
#include "framework/text/text.h"
#include "framework/threads/thread.h"
#include "framework/windows/windows.h"
#include "program/app.h"
#include "program/results/win_results.h"

namespace bracken {

namespace {

// Heights at which the window shows the login, then the databases, then the folder and the start.
constexpr int heightWithDatabases = 225;
constexpr int heightWithFolder = 400;

}  // namespace

class winLogin& winLogin() {
    return Windows::get().instance<class winLogin>();
}

void winLogin::Event_Open() {
    auto& settings = *App().prefs->root;
    chkRemember.Value = settings.GetBoolean("remember", true);
    if (chkRemember.Value) {
        fldHost.Text = settings.GetString("host", "");
        fldUserName.Text = settings.GetString("user", "");
        fldPassword.Text = settings.GetString("password", "");
    }
    lblCurrentFolder.Caption = settings.GetString("current folder", "None");
    if (!equal(lblCurrentFolder.Caption.get(), "None")) butGo.Enabled = true;
}

void winLogin::CheckFields() {
    butConnect.Enabled = !fldHost.Text.get().empty() && !fldUserName.Text.get().empty();
}

void winLogin::fldHost_TextChange() {
    CheckFields();
}

void winLogin::fldUserName_TextChange() {
    CheckFields();
}

void winLogin::storeLogin() {
    auto& settings = *App().prefs->root;
    bool keep = chkRemember.Value;
    settings.SetBoolean("remember", keep);
    settings.SetString("host", keep ? fldHost.Text.get() : "");
    settings.SetString("user", keep ? fldUserName.Text.get() : "");
    settings.SetString("password", keep ? fldPassword.Text.get() : "");
    App().prefs->Save();
}

void winLogin::butConnect_Action() {
    storeLogin();
    Database& db = *App().db;
    db.Host = fldHost.Text;
    db.UserName = fldUserName.Text;
    db.Password = fldPassword.Text;
    ProgressWheel1.Visible = true;
    if (!db.Connect()) {
        MsgBox(db.ErrorMessage);
        ProgressWheel1.Visible = false;
        return;
    }
    std::string saved = App().prefs->root->GetString("database", "");
    ProgressWheel1.Visible = false;
    if (App().CheckError()) return;
    Ref<DatabaseCursor> cursor = db.SQLSelect("show databases");
    if (App().CheckError()) return;
    int index = listDatabases(cursor, saved);
    popChooseDatabase.ListIndex = index;
    cursor->Close();
    if (index != 0) return;
    Height = heightWithDatabases;
    butConnect.Default = false;
    butGo.Default = true;
}

int winLogin::listDatabases(const Ref<DatabaseCursor>& cursor, const std::string& saved) {
    popChooseDatabase.DeleteAllRows();
    popChooseDatabase.AddRow("Choose a Database...");
    int index = 0;
    while (!cursor->EOF_()) {
        std::string name = cursor->IdxField(1)->StringValue;
        popChooseDatabase.AddRow(name);
        if (equal(name, saved)) index = popChooseDatabase.ListCount() - 1;
        cursor->MoveNext();
        Thread::Yield();
    }
    return index;
}

void winLogin::popChooseDatabase_Change() {
    if (popChooseDatabase.ListIndex == 0) {
        butGo.Enabled = false;
        Height = heightWithDatabases;
        return;
    }
    Height = heightWithFolder;
    if (equal(lblCurrentFolder.Caption.get(), "None")) return;
    butGo.Enabled = true;
    butConnect.Default = false;
    butGo.Default = true;
}

void winLogin::butSelectFolder_Action() {
    Ref<FolderItem> folder = SelectFolder();
    if (folder == nullptr) return;
    App().prefs->root->SetString("current folder", folder->AbsolutePath());
    App().prefs->Save();
    butGo.Enabled = true;
    lblCurrentFolder.Caption = folder->AbsolutePath();
}

void winLogin::butGo_Action() {
    Ref<FolderItem> folder = GetFolderItem(lblCurrentFolder.Caption, 0);
    if (folder == nullptr || !folder->Exists()) {
        MsgBox("Your chosen folder can't be found.");
    } else {
        App().prefs->root->SetString("database", popChooseDatabase.Text());
        App().prefs->Save();
    }
    winResults().init(popChooseDatabase.Text(), folder);
}

}  // namespace bracken
