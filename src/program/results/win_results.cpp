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

// The thread of a run that outlived its window, else a new one: there is only one at any time.
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
    updateResultButtons(ResultsEvent::selectionChanged);
}

void winResults::LongProcessThread1_Finished() {
    lblProgress.Caption = "Finished";
    updateResultButtons(ResultsEvent::runFinished);
    searching = false;
    butCancelRun.Caption = "Process";
    ProgressBar1.Visible = false;
    if (lstResults.ListCount() > 0) {
        MsgBox("Finished");
        Beep();
    } else {
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
    updateResultButtons(ResultsEvent::runStopped);
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
    updateResultButtons(ResultsEvent::runRestarted);
    searching = true;
    lstResults.DeleteAllRows();
    LongProcessThread1->Run();
    pwInitializing.Visible = true;
}

void winResults::Event_Close() {
    App().prefs->root->SetWindow(Title.get(), this);
    App().prefs->Save();
}

void winResults::Event_EnableMenuItems() {
    FileClose()->Enabled = false;
}

}  // namespace bracken
