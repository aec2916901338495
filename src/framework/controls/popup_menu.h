#pragma once

#include <functional>
#include <string>
#include <vector>

#include "framework/controls/control.h"

namespace bracken {

// A menu of rows of which one is chosen. Rows count from 0; -1 stands for none.
class PopupMenu : public RectControl {
  public:
    // Assigns like a field; each assignment fires Change, also one of the same value.
    class SelectedRow {
      public:
        explicit SelectedRow(PopupMenu& menu) : menu_(menu) {}
        operator int() const { return menu_.index_; }
        SelectedRow& operator=(int row);
        SelectedRow& operator=(const SelectedRow&) = delete;

      private:
        PopupMenu& menu_;
    };

    PopupMenu(WindowContent& window, std::string name);

    void AddRow(const std::string& text);
    // Drops the rows and, silently, the selection.
    void DeleteAllRows();
    int ListCount() const { return static_cast<int>(rows_.size()); }
    // A row's text; IndexOutOfRangeException.
    const std::string& List(int row) const;
    // The chosen row's text, "" with none.
    std::string Text() const;

    SelectedRow ListIndex;
    std::function<void()> Change;

    // The user chose a row; fires Change only if it is another.
    void userChose(int row);

  private:
    std::vector<std::string> rows_;
    int index_ = 0;
};

}  // namespace bracken
