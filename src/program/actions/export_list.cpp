#include <string>

#include "framework/dialogs/dialogs.h"
#include "framework/files/special_folder.h"
#include "program/results/win_results.h"

namespace bracken {

namespace {

// Called CSV, yet separated by tabs and with nothing quoted: that is the format.
void butExport_Action(const ResultsList& list) {
    SaveAsDialog dialog;
    dialog.InitialDirectory = SpecialFolder::Documents();
    dialog.PromptText = "Save File";
    dialog.SuggestedFileName = "results.csv";
    dialog.Title = "Export as CSV";
    dialog.Filter = "csv";
    Ref<FolderItem> file = dialog.ShowModal();
    if (file == nullptr) return;
    Ref<TextOutputStream> stream = file->CreateTextFile();
    for (int row = 0; row < list.ListCount(); row++) {
        std::string record(list.cellText(row, 0));
        record += '\t';
        record += list.cellText(row, 1);
        stream->WriteLine(record);
        Thread::Yield();
    }
    stream->Close();
    MsgBox("Your file has been saved");
}

}  // namespace

void exportList(class winResults& window, ResultButton& button) {
    button.place(574, 383, 115, 20);
    button.LockRight = button.LockBottom = true;
    button.Caption = "Export to CSV";
    button.Action = [&window] { butExport_Action(window.lstResults); };
    button.enableBetweenRuns(window);
}

}  // namespace bracken
