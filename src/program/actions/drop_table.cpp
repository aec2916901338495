#include <string>

#include "framework/dialogs/dialogs.h"
#include "framework/platform/platform.h"
#include "program/app.h"
#include "program/results/win_results.h"

namespace bracken {

// Asks each time: no setting switches this question off.
void winResults::butDropTable_Action() {
    int answer = MsgBox("Are you sure you wish to drop this table from the database?",
                        BoxCode::yesNoQuestion, "");
    if (answer != BoxCode::yesPressed) return;
    int row = lstResults.ListIndex;
    std::string table = lstResults.Cell(row, 0);
    App().db->SQLExecute("drop table `" + databaseName + "`.`" + table + "`");
    if (!App().CheckError()) lstResults.RemoveRow(row);
}

}  // namespace bracken
