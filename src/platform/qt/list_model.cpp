#include "platform/qt/list_model.h"

#include <algorithm>
#include <utility>

#include "platform/qt/qt_text.h"

namespace bracken {

namespace {

// Columns up to the last one that has a width: assistive programs see all that the view is given,
// hidden or not.
int shownColumns(const Listbox& list) {
    constexpr int anyWidth = 10'000;
    const std::vector<int> widths = list.columnPixels(anyWidth);
    auto last = std::find_if(widths.rbegin(), widths.rend(), [](int width) { return width > 0; });
    return static_cast<int>(widths.rend() - last);
}

// UTF-16 units of a cell that are shown at most, in the list and in a tip.
constexpr int shownLimit = 500;
constexpr int tipLimit = 20'000;
// Pixels of the narrowest letters.
constexpr int narrowest = 2;

}  // namespace

ListModel::ListModel(const Listbox& list, QObject* parent)
    : QAbstractTableModel(parent), list_(list), metrics_(QFont()) {}

void ListModel::showModel() {
    int columns = shownColumns(list_);
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
    takeOverHeadings();
}

void ListModel::takeOverHeadings() {
    std::vector<std::string> headings;
    headings.reserve(static_cast<size_t>(columns_));
    for (int column = 0; column < columns_; column++) headings.emplace_back(list_.Heading(column));
    // The view paints itself whole for it.
    if (headings == headings_) return;
    headings_ = std::move(headings);
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
    if (widths_.size() <= at) widths_.resize(at + 1, shownLimit * narrowest);
    widths_[at] = pixels;
}

int ListModel::widthOf(const QModelIndex& index) const {
    auto column = static_cast<size_t>(index.column());
    return column < widths_.size() ? widths_[column] : shownLimit * narrowest;
}

QString ListModel::startOf(const QModelIndex& index, int limit) const {
    if (!index.isValid() || index.row() >= list_.ListCount()) return {};
    return withoutLineControls(toQStringStart(list_.cellText(index.row(), index.column()), limit));
}

QString ListModel::start(const QModelIndex& index) const {
    return startOf(index, std::min(shownLimit, widthOf(index) / narrowest + 1));
}

QString ListModel::tipText(const QModelIndex& index) const {
    return startOf(index, tipLimit);
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::AccessibleTextRole) return startOf(index, shownLimit);
    if (role != Qt::DisplayRole) return {};
    const QString text = start(index);
    // What is cut off is beyond the column, so that it shows as such.
    qsizetype size = widthOf(index) / metrics_.averageCharWidth() + 1;
    while (size < text.size() && metrics_.horizontalAdvance(text, int(size)) <= widthOf(index))
        size += size / 2 + 1;
    return text.left(size);
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return int(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    return withoutLineControls(toQStringStart(list_.Heading(section), shownLimit));
}

}  // namespace bracken
