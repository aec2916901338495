#pragma once

#include "framework/controls/check_box.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/group_box.h"
#include "framework/controls/image_well.h"
#include "framework/controls/listbox.h"
#include "framework/controls/placard.h"
#include "framework/controls/popup_menu.h"
#include "framework/controls/push_button.h"
#include "framework/controls/radio_button.h"
#include "framework/controls/static_text.h"
#include "framework/controls/tab_panel.h"
#include "framework/windows/window.h"
#include "splitter/canvas_smart_splitter_debugger.h"
#include "splitter/smart_splitter.h"

namespace bracken {

// Splitters of both orientations, side by side and crossing, among controls of many kinds:
//
//     list | group box with field, popup and radio buttons | tab panel with a list
//     -----+-----------------------------------------------+---------------------
//     text                                                 | image well
class SplitterWindow : public Window {
  public:
    Listbox list{*this, "list"};
    GroupBox group{*this, "group"};
    EditField field{*this, "field"};
    PopupMenu popup{*this, "popup"};
    RadioButton first{*this, "first"};
    RadioButton second{*this, "second"};
    TabPanel tabs{*this, "tabs"};
    Listbox inner{*this, "inner"};
    EditField text{*this, "text"};
    ImageWell well{*this, "well"};
    Placard strip{*this, "strip"};
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
    void placeGroup();
    void placeLowerRow();
    void placeSwitches();
    void placeSplitters();
    void applySwitches();
};

}  // namespace bracken
