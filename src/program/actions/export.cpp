#include <string>

#include "framework/dialogs/dialogs.h"
#include "framework/files/special_folder.h"
#include "program/results/win_results.h"

namespace bracken {

// Called CSV, yet separated by tabs and with nothing quoted: that is the format.
void winResults::butExport_Action() {
    SaveAsDialog dialog;
    dialog.InitialDirectory = SpecialFolder::Documents();
    dialog.PromptText = "Save File";
    dialog.SuggestedFileName = "results.csv";
    dialog.Title = "Export as CSV";
    dialog.Filter = "csv";
    Ref<FolderItem> file = dialog.ShowModal();
    if (file == nullptr) return;
    Ref<TextOutputStream> stream = file->CreateTextFile();
    for (int row = 0; row < lstResults.ListCount(); row++) {
        std::string record(lstResults.cellText(row, 0));
        record += '\t';
        record += lstResults.cellText(row, 1);
        stream->WriteLine(record);
        Thread::Yield();
    }
    stream->Close();
    MsgBox("Your file has been saved");
}

}  // namespace bracken
