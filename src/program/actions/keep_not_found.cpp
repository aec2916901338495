#include "framework/text/text.h"
#include "program/results/win_results.h"

namespace bracken {

namespace {

// Removes the first row that names a file; false if there is none.
bool removeFoundRow(ResultsList& list) {
    for (int row = 0; row < list.ListCount(); row++) {
        if (!equal(list.cellText(row, 1), notFoundYet)) {
            list.RemoveRow(row);
            return true;
        }
        Thread::Yield();
    }
    return false;
}

// Starts from the top after each row, since the list may change at each yield.
void butNotFound_Action(class winResults& window) {
    bool again = true;
    while (again) {
        again = removeFoundRow(window.lstResults);
        Thread::Yield();
    }
}

}  // namespace

void keepNotFound(class winResults& window, ResultButton& button) {
    button.place(136, 52, 238, 20);
    button.Caption = "Show Only \"Not Found\" Result";
    button.Action = [&window] { butNotFound_Action(window); };
    button.update = [&window, &button](ResultsEvent event) {
        if (event == ResultsEvent::runFinished) button.Enabled = window.lstResults.ListCount() > 0;
    };
}

}  // namespace bracken
