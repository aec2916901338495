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
    lstResults.Change = [this] { lstResults_Change(); };
    // A row that moves during a run could miss the file being applied.
    lstResults.MaySort = [this] { return !LongProcessThread1->running(); };
    // The run may outlive this window: the handler is that of the window then open.
    LongProcessThread1->Finished = [] { bracken::winResults().LongProcessThread1_Finished(); };
    placeProgress();
    placeCancelRun();
    setUpResultButtons();
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

void winResults::placeCancelRun() {
    butCancelRun.place(24, 52, 80, 20);
    butCancelRun.Caption = "Stop";
    butCancelRun.Action = [this] { butCancelRun_Action(); };
}

void winResults::setUpResultButtons() {
    for (Control* control : controls()) {
        auto* button = dynamic_cast<ResultButton*>(control);
        if (button == nullptr) continue;
        button->Enabled = false;
        button->setUp_(*this, *button);
    }
}

void winResults::updateResultButtons(ResultsEvent event) {
    for (Control* control : controls())
        if (auto* button = dynamic_cast<ResultButton*>(control); button && button->update)
            button->update(event);
}

}  // namespace bracken
