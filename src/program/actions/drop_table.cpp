#include <string>

#include "framework/dialogs/dialogs.h"
#include "framework/platform/platform.h"
#include "program/app.h"
#include "program/results/win_results.h"

namespace bracken {

namespace {

// Asks each time: no setting switches this question off.
void butDropTable_Action(class winResults& window) {
    int answer = MsgBox("Are you sure you wish to drop this table from the database?",
                        BoxCode::yesNoQuestion, "");
    if (answer != BoxCode::yesPressed) return;
    int row = window.lstResults.ListIndex;
    std::string table = window.lstResults.Cell(row, 0);
    App().db->SQLExecute("drop table `" + window.databaseName + "`.`" + table + "`");
    if (!App().CheckError()) window.lstResults.RemoveRow(row);
}

}  // namespace

void dropTable(class winResults& window, ResultButton& button) {
    button.place(15, 383, 109, 20);
    button.LockLeft = button.LockBottom = true;
    button.Caption = "Drop Table";
    button.Action = [&window] { butDropTable_Action(window); };
    button.update = [&window, &button](ResultsEvent event) {
        if (event == ResultsEvent::selectionChanged)
            button.Enabled = window.lstResults.ListIndex >= 0 && !window.searching;
    };
}

}  // namespace bracken
