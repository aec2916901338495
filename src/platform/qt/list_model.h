#pragma once

#include <QAbstractTableModel>
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
    void takeOver();
    // Pixels of a column: what is painted is not read much further.
    void setWidth(int column, int pixels);
    // The longest start of a cell that is shown anywhere.
    QString longText(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QString start(const QModelIndex& index, int limit) const;

    const Listbox& list_;
    // UTF-16 units that a column has room for, by columns.
    std::vector<int> limits_;
    int rows_ = 0;
    int columns_ = 0;
};

}  // namespace bracken
