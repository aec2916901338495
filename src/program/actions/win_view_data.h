#pragma once

#include <string>
#include <vector>

#include "framework/controls/listbox.h"
#include "framework/controls/plain_controls.h"
#include "framework/database/database.h"
#include "framework/windows/window.h"

namespace bracken {

// The columns and rows of a table in one grid, all of them.
class winViewData : public Window {
  public:
    Listbox Listbox1{*this, "Listbox1"};
    StaticText lblMessage{*this, "lblMessage"};

    // Reads the table of that name. What the window shows of another table is not cleared: the rows
    // come below those that are there.
    void init(const std::string& table);

    void Event_EnableMenuItems() override;

  protected:
    void Layout() override;
    void CreateControls() override;
    void AddMenuHandlers() override;

  private:
    // Columns by their number from 1: element 0 of both lists stays as it is.
    struct Columns {
        std::vector<std::string> names{""};
        // In pixels, of the longest text so far, the name's included.
        std::vector<int> widths{0};
    };

    void _CreateControls0();
    bool _FileClose_Action();
    void readColumns(DatabaseCursor& description, Columns& columns);
    // The number of columns that are filled.
    int limitColumns(const Columns& columns);
    void readRows(DatabaseCursor& rows, Columns& columns, int filled);
};

// The open data window, made if there is none.
class winViewData& winViewData();

}  // namespace bracken
