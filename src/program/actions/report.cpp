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

}  // namespace

void winResults::butPrint_Action() {
    if (!mayOpenBrowser()) return;
    Ref<FolderItem> place = SpecialFolder::ApplicationData()->Child("Bracken Lens");
    if (!place->Exists()) place->CreateAsFolder();
    Ref<FolderItem> file = place->Child("report.html");
    std::string html = reportOf(lstResults);
    Ref<TextOutputStream> stream = file->CreateTextFile();
    stream->Write(html);
    stream->Close();
    Launch(file);
}

}  // namespace bracken
