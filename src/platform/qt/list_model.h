#pragma once

#include <QAbstractTableModel>
#include <QFontMetrics>
#include <string>
#include <vector>

#include "framework/controls/listbox.h"

namespace bracken {

// A list's rows as the table view asks for them: read in place, converted for what is painted only.
// The view is told of rows and columns by takeOver alone; between two calls the list may have fewer
// rows than the view believes, and those read as empty. Main thread, holding the baton.
class ListModel : public QAbstractTableModel {
  public:
    ListModel(const Listbox& list, QObject* parent);

    // Tells the view the list's present rows, columns and headings.
    void showModel();
    // Pixels of a column: a cell's text ends a little beyond them, whatever follows in the cell.
    void setWidth(int column, int pixels);
    void setFontMetrics(const QFontMetrics& metrics) { metrics_ = metrics; }
    // Holds all that data shows of a cell, at a fraction of the cost.
    QString start(const QModelIndex& index) const;
    // The start of a cell, more of it than a screen has room for.
    QString tipText(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    void takeOverHeadings();
    int widthOf(const QModelIndex& index) const;
    QString startOf(const QModelIndex& index, int limit) const;

    const Listbox& list_;
    QFontMetrics metrics_;
    // Pixels, by columns.
    std::vector<int> widths_;
    std::vector<std::string> headings_;
    int rows_ = 0;
    int columns_ = 0;
};

}  // namespace bracken
