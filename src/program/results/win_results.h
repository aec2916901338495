#pragma once

#include <string>

#include "framework/controls/buttons.h"
#include "framework/controls/plain_controls.h"
#include "framework/files/folder_item.h"
#include "framework/ref.h"
#include "framework/windows/window.h"
#include "program/results/long_process_thread.h"
#include "program/results/results_list.h"

namespace bracken {

// The window of a run: the tables of a database and the files that name them. Its list is the only
// store of results; the actions on results read and change it there. The bodies of those actions
// stand where their subject is, in actions/.
class winResults : public Window {
  public:
    winResults();

    // The folder to search; may be nil or not exist. Stays nil in a window that a run has made
    // because its own was closed.
    Ref<FolderItem> folder =
        Ref<FolderItem>::nilBecause("The results window was closed before the search began.");
    // Whether a run counts as active.
    bool searching = false;
    std::string databaseName;

    ResultsList lstResults{*this, "lstResults"};
    StaticText lblProgress{*this, "lblProgress"};
    ProgressWheel pwInitializing{*this, "pwInitializing"};
    Timer Timer1{*this, "Timer1"};
    PushButton butExport{*this, "butExport"};
    PushButton butPrint{*this, "butPrint"};
    // The one scan thread: that of a run which is still alive, else a new one.
    Ref<LongProcessThread> LongProcessThread1;
    PushButton butDropTable{*this, "butDropTable"};
    PushButton butCancelRun{*this, "butCancelRun"};
    PushButton butViewData{*this, "butViewData"};
    ProgressWheel ProgressWheel1{*this, "ProgressWheel1"};
    ProgressBar ProgressBar1{*this, "ProgressBar1"};
    PushButton butViewScript{*this, "butViewScript"};
    PushButton butNotFound{*this, "butNotFound"};

    // Lists the database's tables behind the rows that are there, and starts a run.
    void init(const std::string& database, const Ref<FolderItem>& searchFolder);

    void Event_EnableMenuItems() override;

  protected:
    void Layout() override;
    void CreateControls() override;
    void Event_Close() override;

  private:
    void _CreateControls0();
    void placeProgress();
    void placeButtons();
    void attachHandlers();

    void lstResults_Change();
    // Says in full which table of which database Drop Table would drop.
    void nameTableToDrop();
    void LongProcessThread1_Finished();
    void butCancelRun_Action();
    // The actions on results.
    void butExport_Action();
    void butPrint_Action();
    void butDropTable_Action();
    void butViewData_Action();
    void butNotFound_Action();
    // Its body stands in actions/.
    void butViewScript_Action();

    void stopRun();
    void restartRun();
};

// The open results window, made if there is none.
class winResults& winResults();

}  // namespace bracken
