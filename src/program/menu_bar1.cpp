#include "program/menu_bar1.h"

#include <memory>

#include "framework/windows/application.h"

namespace bracken {

namespace {

template <class Item = MenuItem>
MenuItem& add(MenuItem& menu, const char* name, const char* text, const char* shortcut = "") {
    auto item = std::make_unique<Item>();
    item->Name = name;
    item->Text = text;
    item->Shortcut = shortcut;
    return menu.append(std::move(item));
}

}  // namespace

MenuBar1::MenuBar1() {
    Untitled0();
    Untitled1();
}

void MenuBar1::Untitled0() {
    MenuItem& file = add(*this, "FileMenu", "&File");
    add(file, "FileClose", "Close", "Cmd+W");
    add<QuitMenuItem>(file, "FileQuit", "&Quit", "Cmd+Q");
}

void MenuBar1::Untitled1() {
    MenuItem& edit = add(*this, "EditMenu", "&Edit");
    add(edit, "EditUndo", "&Undo", "Cmd+Z");
    add(edit, "UntitledMenu1", "-");
    add(edit, "EditCut", "Cu&t", "Cmd+X");
    add(edit, "EditCopy", "&Copy", "Cmd+C");
    add(edit, "EditPaste", "&Paste", "Cmd+V");
    add(edit, "EditClear", "&Delete");
    add(edit, "UntitledMenu0", "-");
    add(edit, "EditSelectAll", "Select &All", "Cmd+A");
    add<PrefsMenuItem>(edit, "Preferences", "Preferences", "Cmd+,");
}

PrefsMenuItem* Preferences() {
    return dynamic_cast<PrefsMenuItem*>(Application::current()->MenuBar->Child("Preferences"));
}

MenuItem* FileClose() {
    return Application::current()->MenuBar->Child("FileClose");
}

}  // namespace bracken
