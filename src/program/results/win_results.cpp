#include "program/results/win_results.h"

#include <memory>

#include "framework/dialogs/dialogs.h"
#include "framework/text/text.h"
#include "framework/windows/windows.h"
#include "program/app.h"
#include "program/menu_bar1.h"

namespace bracken {

namespace {

// The window that is open at each access.
class WindowContext : public RunContext {
  public:
    Ref<FolderItem> folder() override { return winResults().folder; }
    ResultsList& lstResults() override { return winResults().lstResults; }
    StaticText& lblProgress() override { return winResults().lblProgress; }
    ProgressBar& ProgressBar1() override { return winResults().ProgressBar1; }
    ProgressWheel& pwInitializing() override { return winResults().pwInitializing; }
    std::string extensions() override { return App().prefs->root->GetString("extensions", ""); }
    std::string peekExtensions() override {
        return App().prefs->root->Exists("extensions") ? extensions() : "";
    }
};

// Takes over the thread of a run that outlived its window, so that there is one at all times.
Ref<LongProcessThread> theThread() {
    static std::weak_ptr<LongProcessThread> last;
    auto thread = last.lock();
    if (thread == nullptr || !thread->running())
        thread = std::make_shared<LongProcessThread>(std::make_unique<WindowContext>());
    last = thread;
    return thread;
}

}  // namespace

class winResults& winResults() {
    return Windows::get().instance<class winResults>();
}

winResults::winResults() : LongProcessThread1(theThread()) {}

void winResults::init(const std::string& database, const Ref<FolderItem>& searchFolder) {
    folder = searchFolder;
    databaseName = database;
    nameTableToDrop();
    App().prefs->root->GetWindow(Title.get(), this);
    // A second run's window may lie below others, or be an icon. Not in the accessor, which a run
    // calls all the time.
    Show();
    App().db->DatabaseName(databaseName);
    Ref<DatabaseCursor> cursor = App().db->SQLSelect("show tables in " + databaseName);
    if (!App().CheckError()) {
        while (!cursor->EOF_()) {
            lstResults.AddRow(cursor->IdxField(1)->StringValue);
            lstResults.Cell(lstResults.LastIndex(), 1) = notFoundYet;
            cursor->MoveNext();
            Thread::Yield();
        }
    }
    searching = true;
    // In a window that has had a run it reads "Process".
    butCancelRun.Caption = "Stop";
    LongProcessThread1->Run();
}

void winResults::nameTableToDrop() {
    std::string table = lstResults.Text();
    butDropTable.toolTip = table.empty() ? ""
                                         : "Drops the table \"" + table + "\" of the database \"" +
                                               databaseName + "\"";
}

void winResults::lstResults_Change() {
    nameTableToDrop();
    butDropTable.Enabled = lstResults.ListIndex >= 0 && !searching;
    butViewData.Enabled = lstResults.ListIndex >= 0;
    butViewScript.Enabled = lstResults.ListIndex < 0 ||
                            !equal(lstResults.cellText(lstResults.ListIndex, 1), notFoundYet);
}

void winResults::LongProcessThread1_Finished() {
    lblProgress.Caption = "Finished";
    butPrint.Enabled = true;
    butExport.Enabled = true;
    searching = false;
    butCancelRun.Caption = "Process";
    ProgressBar1.Visible = false;
    if (lstResults.ListCount() > 0) {
        butNotFound.Enabled = true;
        MsgBox("Finished");
        Beep();
    } else {
        butNotFound.Enabled = false;
        MsgBox("Nothing was found");
    }
}

void winResults::butCancelRun_Action() {
    if (equal(butCancelRun.Caption.get(), "Stop"))
        stopRun();
    else
        restartRun();
}

void winResults::stopRun() {
    LongProcessThread1->Kill();
    butCancelRun.Caption = "Process";
    if (lstResults.ListCount() > 0) {
        butPrint.Enabled = true;
        butExport.Enabled = true;
    }
    searching = false;
    lblProgress.Caption = "Processing was stopped. To start it over, click on Process";
    pwInitializing.Visible = false;
    ProgressBar1.Visible = false;
}

void winResults::restartRun() {
    butCancelRun.Caption = "Stop";
    for (int row = 0; row < lstResults.ListCount(); row++) {
        lstResults.Cell(row, 1) = notFoundYet;
        Thread::Yield();
    }
    searching = false;
    butPrint.Enabled = false;
    butExport.Enabled = false;
    searching = true;
    lstResults.DeleteAllRows();
    LongProcessThread1->Run();
    pwInitializing.Visible = true;
}

void winResults::butNotFound_Action() {
    bool again = true;
    while (again) {
        again = false;
        for (int row = 0; row < lstResults.ListCount(); row++) {
            if (!equal(lstResults.cellText(row, 1), notFoundYet)) {
                again = true;
                lstResults.RemoveRow(row);
                break;
            }
            Thread::Yield();
        }
        Thread::Yield();
    }
}

void winResults::Event_Close() {
    App().prefs->root->SetWindow(Title.get(), this);
    App().prefs->Save();
}

void winResults::Event_EnableMenuItems() {
    FileClose()->Enabled = false;
}

}  // namespace bracken
