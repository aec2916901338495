#include "framework/text/text.h"
#include "program/actions/win_view_script.h"
#include "program/results/win_results.h"

namespace bracken {

namespace {

void butViewScript_Action(const ResultsList& list) {
    winViewScript().init(list.ListIndex);
}

// With no row selected the button is enabled.
bool mayViewScript(const ResultsList& list) {
    return list.ListIndex < 0 || !equal(list.cellText(list.ListIndex, 1), notFoundYet);
}

}  // namespace

void viewScript(class winResults& window, ResultButton& button) {
    button.place(241, 383, 99, 20);
    button.LockLeft = button.LockBottom = true;
    button.Caption = "View Script";
    button.Action = [&window] { butViewScript_Action(window.lstResults); };
    button.update = [&window, &button](ResultsEvent event) {
        if (event == ResultsEvent::selectionChanged)
            button.Enabled = mayViewScript(window.lstResults);
    };
}

}  // namespace bracken
