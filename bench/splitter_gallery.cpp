// A window of splitters to try out:
//
//     splitter_gallery

#include "framework/controls/buttons.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/listbox.h"
#include "framework/windows/application.h"
#include "framework/windows/windows.h"
#include "platform/qt/qt_platform.h"
#include "splitter/canvas_smart_splitter_debugger.h"
#include "splitter/smart_splitter.h"

namespace {

using namespace bracken;

// Splitters of both orientations, side by side and crossing, among lists and texts:
//
//     list | notes | names
//     -----+-------+------
//     text         | rest
class SplitterWindow : public Window {
  public:
    Listbox list{*this, "list"};
    EditField notes{*this, "notes"};
    Listbox names{*this, "names"};
    EditField text{*this, "text"};
    Listbox rest{*this, "rest"};
    CheckBox debug{*this, "debug"};
    CheckBox live{*this, "live"};
    PushButton reset{*this, "reset"};
    SmartSplitter left{*this, "left"};
    SmartSplitter right{*this, "right"};
    SmartSplitter crossing{*this, "crossing"};
    SmartSplitter bottom{*this, "bottom"};
    CanvasSmartSplitterDebugger overlay{*this, "overlay"};

  protected:
    void Layout() override;
    void CreateControls() override;
    void Event_Open() override;
    void Event_Resized() override;

  private:
    void placeUpperRow();
    void placeLowerRow();
    void placeSwitches();
    void placeSplitters();
    void applySwitches();
};

void lock(RectControl& control, bool left, bool top, bool right, bool bottom) {
    control.LockLeft = left;
    control.LockTop = top;
    control.LockRight = right;
    control.LockBottom = bottom;
}

void SplitterWindow::Layout() {
    Title = "Splitters";
    Width = 900;
    Height = 640;
    MenuBarVisible = false;
}

void SplitterWindow::CreateControls() {
    placeUpperRow();
    placeLowerRow();
    placeSwitches();
    placeSplitters();
}

void SplitterWindow::placeUpperRow() {
    list.place(10, 50, 200, 300);
    lock(list, true, true, false, false);
    list.AddRow("a list");
    notes.place(220, 50, 330, 300);
    lock(notes, true, true, false, false);
    notes.MultiLine = true;
    names.place(560, 50, 330, 300);
    lock(names, true, true, true, false);
}

void SplitterWindow::placeLowerRow() {
    text.place(10, 366, 600, 264);
    lock(text, true, true, false, true);
    text.MultiLine = text.ScrollBarVertical = true;
    text.Text = "Text of several lines.\nDrag the dividers.";
    rest.place(626, 366, 264, 264);
    lock(rest, true, true, true, true);
}

void SplitterWindow::placeSwitches() {
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
    // The splitters above end at the crossing one and follow it.
    for (SmartSplitter* splitter : {&left, &right}) crossing.attach(splitter);
    applySwitches();
}

void SplitterWindow::applySwitches() {
    for (SmartSplitter* splitter : {&left, &right, &crossing, &bottom}) {
        splitter->DisableLiveDrag = !live.Value;
        splitter->setDebug(debug.Value);
    }
    // Each call has cleared the overlay; behaving draws without clearing.
    Event_Resized();
}

void SplitterWindow::Event_Resized() {
    for (SmartSplitter* splitter : {&left, &right, &crossing, &bottom}) splitter->behave();
}

}  // namespace

int main(int argc, char** argv) {
    Application application;
    QtPlatform platform(argc, argv);
    return platform.run([] { Windows::get().instance<SplitterWindow>(); });
}
