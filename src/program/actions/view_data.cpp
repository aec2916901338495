#include "program/actions/win_view_data.h"
#include "program/results/win_results.h"

namespace bracken {

namespace {

void butViewData_Action(class winResults& window) {
    window.ProgressWheel1.Visible = true;
    winViewData().init(window.lstResults.Text());
}

}  // namespace

void viewData(class winResults& window, ResultButton& button) {
    button.place(142, 383, 80, 20);
    button.LockLeft = button.LockBottom = true;
    button.Caption = "View Data";
    button.Action = [&window] { butViewData_Action(window); };
    button.enableWithSelection(window);
}

}  // namespace bracken
