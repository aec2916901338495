#include "program/actions/win_view_script.h"

#include <cstdint>
#include <vector>

#include "framework/exception.h"
#include "framework/files/folder_item.h"
#include "framework/text/text.h"
#include "framework/threads/thread.h"
#include "framework/windows/windows.h"
#include "program/app.h"
#include "program/results/win_results.h"

namespace bracken {

namespace {

// The frame's key in the settings; not quite the window's name.
constexpr const char* frameKey = "winViewScripts";
// Pixels of a list that one can choose a file from.
constexpr int leastList = 60;

// The one that all paths are cut at, told by the first of them.
std::string separatorOf(const std::vector<std::string>& paths) {
    if (paths.empty()) throw IndexOutOfRangeException("the row names no file");
    if (InStr(paths.front(), ":") > 0) return ":";
    return InStr(paths.front(), "\\") > 0 ? "\\" : "/";
}

}  // namespace

class winViewScript& winViewScript() {
    return Windows::get().instance<class winViewScript>();
}

// What a small screen takes from the window's height, the locks take from the list.
void winViewScript::Event_Open() {
    int missing = leastList - lstScipts.Height;
    if (missing > 0) splitter.setPosition(splitter.position() + missing);
}

void winViewScript::init(int row) {
    table = bracken::winResults().lstResults.Cell(row, 0);
    std::string text = bracken::winResults().lstResults.Cell(row, 2);
    std::vector<std::string> paths = Split(text, ",");
    std::string separator = separatorOf(paths);
    for (const std::string& path : paths) {
        lstScipts.AddRow(NthField(path, separator, CountFields(path, separator)));
        lstScipts.Cell(lstScipts.LastIndex(), 1) = path;
        Thread::Yield();
    }
    App().prefs->root->GetWindow(frameKey, this);
    // Behind GetWindow, which brings back the title of the table before.
    Title = "View Scripts for " + table;
}

void winViewScript::lstScipts_Change() {
    if (lstScipts.ListIndex < 0) return;
    Ref<FolderItem> file = GetFolderItem(lstScipts.Cell(lstScipts.ListIndex, 1), 0);
    Ref<BinaryStream> stream = file->OpenAsBinaryFile(false);
    std::string text = stream->Read(static_cast<int32_t>(file->Length()), nullptr);
    stream->Close();
    EditField1.Text = std::move(text);
    markOccurrences();
}

// Each occurrence, also one that overlaps the one before; the last stays selected.
void winViewScript::markOccurrences() {
    int64_t found = InStr(0, EditField1.Text.get(), table);
    while (found > 0) {
        EditField1.SelStart = static_cast<int>(found - 1);
        EditField1.SelLength = static_cast<int>(Len(table));
        EditField1.SelBold = true;
        EditField1.SelOutline = true;
        EditField1.SelTextColor = RGB(0xff, 0, 0);
        found = InStr(found + 1, EditField1.Text.get(), table);
        Thread::Yield();
    }
}

void winViewScript::PushButton1_Action() {
    Close();
}

void winViewScript::Event_Resized() {
    splitter.behave();
}

void winViewScript::Event_Close() {
    App().prefs->root->SetWindow(frameKey, this);
    App().prefs->Save();
}

}  // namespace bracken
