#include "bench/splitter_window.h"

namespace bracken {

namespace {

void lock(RectControl& control, bool left, bool top, bool right, bool bottom) {
    control.LockLeft = left;
    control.LockTop = top;
    control.LockRight = right;
    control.LockBottom = bottom;
}

}  // namespace

void SplitterWindow::Layout() {
    Title = "Splitters";
    Width = 900;
    Height = 640;
    MenuBarVisible = false;
}

void SplitterWindow::CreateControls() {
    placeUpperRow();
    placeGroup();
    placeLowerRow();
    placeSwitches();
    placeSplitters();
}

void SplitterWindow::placeUpperRow() {
    list.place(10, 50, 200, 300);
    lock(list, true, true, false, false);
    list.AddRow("a list");
    group.place(220, 50, 330, 300);
    lock(group, true, true, false, false);
    group.Caption = "A group box";
    tabs.place(560, 50, 330, 300);
    lock(tabs, true, true, true, false);
    tabs.Captions = {"A tab panel"};
    inner.place(575, 90, 300, 245);
    lock(inner, true, true, true, false);
    inner.Parent = &tabs;
    inner.AddRow("a list on its page");
}

void SplitterWindow::placeGroup() {
    field.place(235, 80, 300, 24);
    popup.place(235, 115, 200, 24);
    first.place(235, 150, 180, 20);
    second.place(235, 175, 180, 20);
    for (RectControl* control :
         std::initializer_list<RectControl*>{&field, &popup, &first, &second})
        control->Parent = &group;
    field.Text = "a field";
    popup.AddRow("a popup menu");
    popup.ListIndex = 0;
    first.Caption = "one choice";
    second.Caption = "another";
    first.Value = true;
}

void SplitterWindow::placeLowerRow() {
    text.place(10, 366, 600, 264);
    lock(text, true, true, false, true);
    text.MultiLine = text.ScrollBarVertical = true;
    text.Text = "Text of several lines.\nDrag the dividers.";
    well.place(626, 366, 264, 264);
    lock(well, true, true, true, true);
}

void SplitterWindow::placeSwitches() {
    strip.place(0, 0, 900, 40);
    lock(strip, true, true, true, false);
    debug.place(10, 10, 160, 20);
    debug.Caption = "Show what they do";
    live.place(190, 10, 160, 20);
    live.Caption = "Live drag";
    live.Value = true;
    debug.Action = live.Action = [this] { applySwitches(); };
    reset.place(370, 10, 100, 20);
    reset.Caption = "Reset";
    reset.Action = [this] {
        for (SmartSplitter* splitter : {&left, &right, &crossing, &bottom})
            splitter->resetPosition();
    };
}

void SplitterWindow::placeSplitters() {
    left.place(210, 50, 10, 300);
    right.place(550, 50, 10, 300);
    crossing.place(10, 350, 880, 16);
    lock(crossing, true, true, true, false);
    bottom.place(610, 366, 16, 264);
    lock(bottom, true, true, false, true);
}

void SplitterWindow::Event_Open() {
    // The dividers above end at the crossing one and follow it.
    for (SmartSplitter* splitter : {&left, &right}) crossing.attach(splitter);
    applySwitches();
}

void SplitterWindow::applySwitches() {
    for (SmartSplitter* splitter : {&left, &right, &crossing, &bottom}) {
        splitter->DisableLiveDrag = !live.Value;
        splitter->setDebug(debug.Value);
    }
    // Each has wiped the overlay; behaving draws without that.
    Event_Resized();
}

void SplitterWindow::Event_Resized() {
    for (SmartSplitter* splitter : {&left, &right, &crossing, &bottom}) splitter->behave();
}

}  // namespace bracken
