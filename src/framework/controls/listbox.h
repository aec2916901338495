#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "framework/controls/control.h"
#include "framework/controls/list_rows.h"

namespace bracken {

// A grid of text.
// - Rows and columns count from 0; -1 stands for no row.
// - A row outside the range, or a column below 0, raises IndexOutOfRangeException.
// - Cells beyond ColumnCount are kept, unseen.
class Listbox : public RectControl {
  public:
    // A cell that reads as text and can be assigned.
    class CellRef {
      public:
        CellRef(Listbox& list, int row, int column) : list_(list), row_(row), column_(column) {}
        operator std::string() const { return std::string(list_.cellText(row_, column_)); }
        void operator=(std::string_view text) { list_.setCell(row_, column_, text); }
        void operator=(const CellRef&) = delete;

      private:
        Listbox& list_;
        int row_;
        int column_;
    };

    Listbox(WindowContent& window, std::string name);

    Property<int> ColumnCount;
    // Widths by column, separated by commas: "75" pixels, "20%" of the list's width, "0" hides the
    // column. Columns without an entry share what is left, at least 75 pixels each.
    Property<std::string> ColumnWidths;
    Property<bool> HasHeading;
    // The column that is marked as the sorting one; rows stay in the order of adding until the user
    // sorts.
    Property<int> HeadingIndex;
    bool ScrollBarVertical = true;
    bool ScrollbarHorizontal = false;

    // The selected row. Assigning another one fires Change.
    Property<int> ListIndex;
    std::function<void()> Change;
    // Whether the user may sort now; unset means always.
    std::function<bool()> MaySort;

    // Headings separated by tabs.
    void setInitialValue(std::string_view headings);
    std::string Heading(int column) const;
    void setHeading(int column, const std::string& text);

    int ListCount() const { return rows_.count(); }
    // The row added last.
    int LastIndex() const { return lastIndex_; }
    CellRef Cell(int row, int column) { return {*this, row, column}; }
    // Column 0 of a row.
    std::string List(int row) const { return std::string(cellText(row, 0)); }
    // Column 0 of the selected row, "" with none.
    std::string Text() const;
    void AddRow(std::string_view text);
    // Adds a row with these cells, faster and smaller than cell by cell.
    void addCells(const std::vector<std::string_view>& cells);
    // The selection stays with its row; removing that, or all rows, clears it and fires Change.
    void RemoveRow(int row);
    void DeleteAllRows();

    // A cell's bytes without a copy, valid until the list changes.
    std::string_view cellText(int row, int column) const;
    virtual void setCell(int row, int column, std::string_view text);
    // Amortised constant for each byte.
    void appendToCell(int row, int column, std::string_view text);
    // Changes with everything that adds, removes or moves rows or writes to column 0; unique in the
    // process.
    uint64_t structureVersion() const { return structureVersion_; }

    // Widths of all columns in pixels for a list of this width.
    std::vector<int> columnPixels(int listWidth) const;
    // The selected row's cells, ColumnCount of them, separated by tabs.
    std::string selectedRowText() const;
    // Whether the user has sorted, by HeadingIndex, and in which direction.
    bool sorted() const { return sorted_; }
    bool sortedDescending() const { return descending_; }

    void userSelected(int row);
    // Sorts by that column, see ListRows::sortedOrder; again on the same column, in the other
    // direction.
    void userClickedHeading(int column);

  private:
    void structureChanged();
    void checkCell(int row, int column) const;
    // Sets ListIndex without firing Change.
    void selectSilently(int row);

    ListRows rows_;
    std::vector<std::string> headings_;
    int lastIndex_ = -1;
    bool silent_ = false;
    bool sorted_ = false;
    bool descending_ = false;
    uint64_t structureVersion_ = 0;
};

}  // namespace bracken
