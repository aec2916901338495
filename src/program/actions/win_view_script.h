#pragma once

#include <string>

#include "framework/controls/buttons.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/listbox.h"
#include "framework/controls/plain_controls.h"
#include "framework/windows/window.h"
#include "splitter/smart_splitter.h"

namespace bracken {

// The window in which the user judges whether a hit is a real use of the table: the files that hold
// its name, and the chosen one's text with every occurrence marked.
class winViewScript : public Window {
  public:
    // The table that it was opened for last.
    std::string table;

    // In the order in which the splitter meets them.
    EditField EditField1{*this, "EditField1"};
    PushButton PushButton1{*this, "PushButton1"};
    StaticText StaticText1{*this, "StaticText1"};
    // File name, absolute path.
    Listbox lstScipts{*this, "lstScipts"};
    SmartSplitter splitter{*this, "splitter"};

    // Adds the files of a row of the results list behind those that are there.
    void init(int row);

  protected:
    void Layout() override;
    void CreateControls() override;
    void Event_Open() override;
    void Event_Resized() override;
    void Event_Close() override;

  private:
    void _CreateControls0();
    void placeTexts();
    void placeFiles();
    void PushButton1_Action();
    void lstScipts_Change();
    void markOccurrences();
};

// The open window, made if there is none.
class winViewScript& winViewScript();

}  // namespace bracken
