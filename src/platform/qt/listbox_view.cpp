#include "platform/qt/listbox_view.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QScopedValueRollback>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "framework/windows/event.h"
#include "platform/qt/tip_text.h"

namespace bracken {

namespace {

// Pixels of a row above and below its text together.
constexpr int rowPadding = 4;
// Pixels of a cell beside its text together.
constexpr int cellPadding = 8;

}  // namespace

ListboxView::ListboxView(Listbox& model, QWidget* parent)
    : QTableView(parent), ControlView(model, *this), model_(model), rows_(model, nullptr) {
    setModel(&rows_);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setVerticalScrollBarPolicy(model.ScrollBarVertical ? Qt::ScrollBarAsNeeded
                                                       : Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(model.ScrollbarHorizontal ? Qt::ScrollBarAsNeeded
                                                           : Qt::ScrollBarAlwaysOff);
    setUpHeaders();
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ListboxView::userSelected);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this,
            &ListboxView::userClickedHeading);
}

void ListboxView::setUpHeaders() {
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
}

void ListboxView::sync() {
    QScopedValueRollback<bool> guard(syncing_, true);
    int rowHeight = fontMetrics().height() + rowPadding;
    if (verticalHeader()->defaultSectionSize() != rowHeight)
        verticalHeader()->setDefaultSectionSize(rowHeight);
    rows_.setFontMetrics(fontMetrics());
    rows_.showModel();
    syncHeading();
    syncColumns();
    syncSelection();
    updateCells();
}

void ListboxView::updateCells() {
    int first = rowAt(0);
    int last = rowAt(viewport()->height() - 1);
    if (last < 0) last = rows_.rowCount() - 1;
    std::vector<QModelIndex> cells;
    for (int row = std::max(first, 0); first >= 0 && row <= last; row++)
        for (int column = 0; column < rows_.columnCount(); column++)
            cells.push_back(rows_.index(row, column));
    // Scrolling has everything painted anyway.
    bool moved = first != firstShown_ || cells.size() != shown_.size();
    if (moved) {
        viewport()->update();
        shown_.clear();
    }
    firstShown_ = first;
    shown_.resize(cells.size());
    for (size_t i = 0; i < cells.size(); i++)
        if (takeOverCell(cells[i], shown_[i]) && !moved) update(cells[i]);
}

bool ListboxView::takeOverCell(const QModelIndex& cell, Shown& shown) const {
    QString start = rows_.start(cell);
    if (start == shown.start) return false;
    shown.start = start;
    QString text = rows_.data(cell, Qt::DisplayRole).toString();
    return text != std::exchange(shown.text, text);
}

void ListboxView::syncHeading() {
    QHeaderView& heading = *horizontalHeader();
    heading.setVisible(model_.HasHeading);
    heading.setSortIndicatorShown(model_.sorted());
    if (heading.isSortIndicatorShown())
        heading.setSortIndicator(model_.HeadingIndex, model_.sortedDescending()
                                                          ? Qt::DescendingOrder
                                                          : Qt::AscendingOrder);
}

void ListboxView::syncColumns() {
    std::vector<int> widths = model_.columnPixels(viewport()->width());
    for (int column = 0; column < rows_.columnCount(); column++) {
        int width =
            column < static_cast<int>(widths.size()) ? widths[static_cast<size_t>(column)] : 0;
        // A section beyond the header's limit would stay as it is.
        width = std::min(width, horizontalHeader()->maximumSectionSize());
        setColumnHidden(column, width <= 0);
        if (width > 0 && columnWidth(column) != width) {
            setColumnWidth(column, width);
            // What was shown of its cells has to be asked anew.
            firstShown_ = -1;
        }
        rows_.setWidth(column, width);
    }
}

int ListboxView::selectedRow() const {
    const QItemSelection selection = selectionModel()->selection();
    return selection.isEmpty() ? -1 : selection.first().top();
}

void ListboxView::syncSelection() {
    int row = model_.ListIndex;
    if (row == selectedRow()) return;
    // The user's place in the list stays when a row is selected by the program.
    setAutoScroll(false);
    if (row < 0)
        selectionModel()->clear();
    else
        selectionModel()->setCurrentIndex(
            rows_.index(row, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    setAutoScroll(true);
}

void ListboxView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    syncColumns();
}

void ListboxView::userSelected() {
    if (syncing_) return;
    handleEvent([this] { model_.userSelected(selectedRow()); });
}

void ListboxView::userClickedHeading(int column) {
    handleEvent([this, column] { model_.userClickedHeading(column); });
}

bool ListboxView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
    showTip(static_cast<QHelpEvent*>(event)->pos());
    return true;
}

QModelIndex ListboxView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (action != MoveHome && action != MoveEnd) return QTableView::moveCursor(action, modifiers);
    // Of the columns the leftmost in sight, so that the list does not scroll sideways.
    return rows_.index(action == MoveHome ? 0 : rows_.rowCount() - 1, std::max(columnAt(0), 0));
}

void ListboxView::keyPressEvent(QKeyEvent* event) {
    // Ctrl+1 is a click on the first heading, and so on.
    const int column = event->key() - Qt::Key_1;
    if (event->modifiers() == Qt::ControlModifier && column >= 0 && column < rows_.columnCount()) {
        userClickedHeading(column);
        return;
    }
    // That is the Edit menu's; where it has nothing to copy, the toolkit would copy a cell.
    if (event->matches(QKeySequence::Copy))
        event->ignore();
    else
        QTableView::keyPressEvent(event);
}

void ListboxView::showTip(const QPoint& at) {
    QModelIndex index = indexAt(at);
    QString text = rows_.tipText(index);
    if (fontMetrics().horizontalAdvance(text) + cellPadding <= visualRect(index).width())
        text.clear();
    QToolTip::showText(viewport()->mapToGlobal(at), tipText(text, *screen()), viewport(),
                       visualRect(index));
}

}  // namespace bracken
