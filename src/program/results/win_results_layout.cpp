#include "program/results/win_results.h"

namespace bracken {

void winResults::Layout() {
    Title = "Results";
    Width = 715;
    Height = 433;
}

void winResults::CreateControls() {
    _CreateControls0();
}

void winResults::_CreateControls0() {
    lstResults.place(15, 84, 680, 287);
    lstResults.LockLeft = lstResults.LockTop = lstResults.LockRight = lstResults.LockBottom = true;
    lstResults.ColumnCount = 3;
    lstResults.ColumnWidths = "20%,80%,0";
    lstResults.HasHeading = true;
    lstResults.setInitialValue("Table\tFound In");
    lstResults.HeadingIndex = 0;
    placeProgress();
    placeButtons();
    attachHandlers();
}

void winResults::placeProgress() {
    lblProgress.place(24, 6, 671, 20);
    lblProgress.Caption = "Gathering Files...";
    pwInitializing.place(174, 6, 16, 16);
    pwInitializing.Parent = &lblProgress;
    ProgressWheel1.place(405, 387, 16, 16);
    ProgressWheel1.Visible = false;
    ProgressWheel1.LockLeft = ProgressWheel1.LockBottom = true;
    ProgressBar1.place(24, 28, 665, 20);
    ProgressBar1.Visible = false;
    ProgressBar1.LockLeft = ProgressBar1.LockTop = ProgressBar1.LockRight = true;
}

void winResults::placeButtons() {
    butExport.place(574, 383, 115, 20);
    butExport.Caption = "Export to CSV";
    butPrint.place(482, 383, 80, 20);
    butPrint.Caption = "Print";
    butDropTable.place(15, 383, 109, 20);
    butDropTable.Caption = "Drop Table";
    butCancelRun.place(24, 52, 80, 20);
    butCancelRun.Caption = "Stop";
    butViewData.place(142, 383, 80, 20);
    butViewData.Caption = "View Data";
    butViewScript.place(241, 383, 99, 20);
    butViewScript.Caption = "View Script";
    butNotFound.place(136, 52, 238, 20);
    butNotFound.Caption = "Show Only \"Not Found\" Result";
    for (PushButton* button : {&butExport, &butPrint}) button->LockRight = true;
    for (PushButton* button : {&butDropTable, &butViewData, &butViewScript})
        button->LockLeft = true;
    for (PushButton* button : {&butExport, &butPrint, &butDropTable, &butViewData, &butViewScript})
        button->LockBottom = true;
    for (PushButton* button :
         {&butExport, &butPrint, &butDropTable, &butViewData, &butViewScript, &butNotFound})
        button->Enabled = false;
}

void winResults::attachHandlers() {
    lstResults.Change = [this] { lstResults_Change(); };
    // A row that moves during a run could miss the file being applied.
    lstResults.MaySort = [this] { return !LongProcessThread1->running(); };
    // The run may outlive this window: the handler is that of the window then open.
    LongProcessThread1->Finished = [] { bracken::winResults().LongProcessThread1_Finished(); };
    butExport.Action = [this] { butExport_Action(); };
    butPrint.Action = [this] { butPrint_Action(); };
    butDropTable.Action = [this] { butDropTable_Action(); };
    butViewData.Action = [this] { butViewData_Action(); };
    butCancelRun.Action = [this] { butCancelRun_Action(); };
    butNotFound.Action = [this] { butNotFound_Action(); };
    butViewScript.Action = [this] { butViewScript_Action(); };
}

}  // namespace bracken
