#pragma once

#include "framework/controls/check_box.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/listbox.h"
#include "framework/controls/push_button.h"
#include "framework/windows/window.h"
#include "splitter/canvas_smart_splitter_debugger.h"
#include "splitter/smart_splitter.h"

namespace bracken {

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

}  // namespace bracken
