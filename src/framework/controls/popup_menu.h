#pragma once

#include <functional>
#include <string>
#include <vector>

#include "framework/controls/control.h"

namespace bracken {

// A menu of rows of which one is chosen. Rows count from 0; -1 stands for none.
class PopupMenu : public RectControl {
  public:
    // Assigns like a field; an assignment fires Change, also with the value that it had.
    class Index {
      public:
        explicit Index(PopupMenu& menu) : menu_(menu) {}
        operator int() const { return menu_.index_; }
        Index& operator=(int row);
        Index& operator=(const Index&) = delete;

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

    Index ListIndex;
    std::function<void()> Change;

    // The user chose a row; fires Change only if it is another.
    void userChose(int row);

  private:
    std::vector<std::string> rows_;
    int index_ = 0;
};

}  // namespace bracken
