#include "program/actions/win_view_script.h"

namespace bracken {

void winViewScript::Layout() {
    Title = "View Script";
    Width = 798;
    Height = 640;
    MaximizeButton = false;
}

void winViewScript::CreateControls() {
    _CreateControls0();
}

void winViewScript::_CreateControls0() {
    placeTexts();
    placeFiles();
    PushButton1.Action = [this] { PushButton1_Action(); };
    lstScipts.Change = [this] { lstScipts_Change(); };
}

void winViewScript::placeTexts() {
    EditField1.place(9, 149, 769, 445);
    EditField1.LockLeft = EditField1.LockRight = EditField1.LockBottom = true;
    EditField1.MultiLine = true;
    EditField1.Styled = true;
    EditField1.ScrollBarVertical = true;
    EditField1.TextSize = 10;
    EditField1.TabIndex = 1;
    PushButton1.place(698, 606, 80, 20);
    PushButton1.LockRight = PushButton1.LockBottom = true;
    PushButton1.Caption = "Close";
    PushButton1.TabIndex = 2;
    StaticText1.place(10, 7, 338, 20);
    StaticText1.Caption = "Select the script you wish to view";
    StaticText1.TabIndex = 3;
}

// The splitter finds text and list by their distance to it: 0 and 2.
void winViewScript::placeFiles() {
    lstScipts.place(8, 31, 762, 100);
    lstScipts.LockLeft = lstScipts.LockTop = lstScipts.LockRight = lstScipts.LockBottom = true;
    lstScipts.ColumnCount = 2;
    lstScipts.HasHeading = true;
    lstScipts.setInitialValue("Script\tPath");
    lstScipts.ColumnWidths = "20%";
    lstScipts.TabIndex = 4;
    splitter.place(341, 133, 97, 16);
    splitter.LockBottom = true;
    splitter.TabIndex = 5;
    splitter.accessibleName = "Divider";
}

}  // namespace bracken
