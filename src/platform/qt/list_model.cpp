#include "platform/qt/list_model.h"

#include <algorithm>

#include "platform/qt/qt_text.h"

namespace bracken {

namespace {

// UTF-16 units of a cell that are shown at most.
constexpr int shownLimit = 500;
// Pixels of the narrowest letters.
constexpr int narrowest = 2;

}  // namespace

ListModel::ListModel(const Listbox& list, QObject* parent)
    : QAbstractTableModel(parent), list_(list) {}

void ListModel::takeOver() {
    int columns = std::max<int>(list_.ColumnCount, 0);
    if (columns != columns_) {
        beginResetModel();
        columns_ = columns;
        rows_ = list_.ListCount();
        endResetModel();
    }
    int rows = list_.ListCount();
    if (rows > rows_) {
        beginInsertRows({}, rows_, rows - 1);
        rows_ = rows;
        endInsertRows();
    } else if (rows < rows_) {
        beginRemoveRows({}, rows, rows_ - 1);
        rows_ = rows;
        endRemoveRows();
    }
    if (columns_ > 0) Q_EMIT headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

void ListModel::setWidth(int column, int pixels) {
    auto at = static_cast<size_t>(column);
    if (limits_.size() <= at) limits_.resize(at + 1, shownLimit);
    // One more, so that what is cut off shows as such.
    limits_[at] = std::min(shownLimit, pixels / narrowest + 1);
}

QString ListModel::start(const QModelIndex& index, int limit) const {
    if (!index.isValid() || index.row() >= list_.ListCount()) return {};
    return harmlessLine(shownStart(list_.cellText(index.row(), index.column()), limit));
}

QString ListModel::longText(const QModelIndex& index) const {
    return start(index, shownLimit);
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::AccessibleTextRole) return longText(index);
    if (role != Qt::DisplayRole) return {};
    auto column = static_cast<size_t>(index.column());
    return start(index, column < limits_.size() ? limits_[column] : shownLimit);
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return int(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    return harmlessLine(shownStart(list_.Heading(section), shownLimit));
}

}  // namespace bracken
