#include <string>

#include "framework/dialogs/dialogs.h"
#include "framework/files/special_folder.h"
#include "program/actions/win_confirm.h"
#include "program/app.h"
#include "program/results/win_results.h"

namespace bracken {

namespace {

// One line of HTML. Cells go in as they are, markup in them included.
std::string reportOf(const Listbox& list) {
    std::string html =
        "<html><bod><table cellspacing=0 border><tr><th>Table</th><th>Found In</th></tr>";
    for (int row = 0; row < list.ListCount(); row++) {
        html += "<tr><td>";
        html += list.cellText(row, 0);
        html += "</td><td>";
        html += list.cellText(row, 1);
        html += "</td></tr>";
        Thread::Yield();
    }
    return html + "</table></body></html>";
}

bool mayOpenBrowser() {
    return App().prefs->root->GetBoolean("no warning", false) || winConfirm().init();
}

void butPrint_Action(const ResultsList& list) {
    if (!mayOpenBrowser()) return;
    Ref<FolderItem> place = SpecialFolder::ApplicationData()->Child("Bracken Lens");
    if (!place->Exists()) place->CreateAsFolder();
    Ref<FolderItem> file = place->Child("report.html");
    std::string html = reportOf(list);
    Ref<TextOutputStream> stream = file->CreateTextFile();
    stream->Write(html);
    stream->Close();
    Launch(file);
}

}  // namespace

void printReport(class winResults& window, ResultButton& button) {
    button.place(482, 383, 80, 20);
    button.LockRight = button.LockBottom = true;
    button.Caption = "Print";
    button.Action = [&window] { butPrint_Action(window.lstResults); };
    button.enableBetweenRuns(window);
}

}  // namespace bracken
