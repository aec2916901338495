#include "framework/controls/listbox.h"

#include <algorithm>

#include "framework/controls/window_content.h"
#include "framework/exception.h"
#include "framework/text/text.h"

namespace bracken {

namespace {

// The fewest pixels of a column without a width of its own.
constexpr int64_t minShare = 75;

uint64_t nextVersion() {
    static uint64_t last = 0;
    return ++last;
}

}  // namespace

Listbox::Listbox(WindowContent& window, std::string name)
    : RectControl(window, std::move(name)),
      ColumnCount(*this, 1),
      ColumnWidths(*this, ""),
      HasHeading(*this, false),
      HeadingIndex(*this, -1),
      ListIndex(*this, -1,
                [this](int) {
                    if (silent_ || !Change) return;
                    auto keep = this->window().weak_from_this().lock();
                    Change();
                }),
      structureVersion_(nextVersion()) {}

void Listbox::structureChanged() {
    structureVersion_ = nextVersion();
    markDirty();
}

void Listbox::checkCell(int row, int column) const {
    baton::assertHeld();
    if (row >= 0 && row < rows_.count() && column >= 0) return;
    throw IndexOutOfRangeException(name() + ": row " + Str(row) + ", column " + Str(column));
}

void Listbox::setInitialValue(std::string_view headings) {
    headings_ = Split(headings, "\t");
    markDirty();
}

std::string Listbox::Heading(int column) const {
    auto at = static_cast<size_t>(column);
    return at < headings_.size() ? headings_[at] : std::string();
}

void Listbox::setHeading(int column, const std::string& text) {
    if (column < 0) throw IndexOutOfRangeException(name() + ": heading " + Str(column));
    auto at = static_cast<size_t>(column);
    if (at >= headings_.size()) headings_.resize(at + 1);
    headings_[at] = text;
    markDirty();
}

std::string Listbox::Text() const {
    return ListIndex < 0 ? std::string() : std::string(cellText(ListIndex, 0));
}

void Listbox::AddRow(std::string_view text) {
    addCells({text});
}

void Listbox::addCells(const std::vector<std::string_view>& cells) {
    baton::assertHeld();
    rows_.add(cells);
    lastIndex_ = rows_.count() - 1;
    structureChanged();
}

void Listbox::selectSilently(int row) {
    silent_ = true;
    ListIndex = row;
    silent_ = false;
}

void Listbox::RemoveRow(int row) {
    checkCell(row, 0);
    rows_.remove(row);
    structureChanged();
    if (row < ListIndex)
        selectSilently(ListIndex - 1);
    else if (row == ListIndex)
        ListIndex = -1;
}

void Listbox::DeleteAllRows() {
    baton::assertHeld();
    rows_.clear();
    lastIndex_ = -1;
    structureChanged();
    ListIndex = -1;
}

std::string_view Listbox::cellText(int row, int column) const {
    checkCell(row, column);
    return rows_.text(row, column);
}

void Listbox::setCell(int row, int column, std::string_view text) {
    checkCell(row, column);
    rows_.set(row, column, text);
    if (column == 0)
        structureChanged();
    else
        markDirty();
}

void Listbox::appendToCell(int row, int column, std::string_view text) {
    checkCell(row, column);
    rows_.append(row, column, text);
    if (column == 0)
        structureChanged();
    else
        markDirty();
}

std::string Listbox::selectedRowText() const {
    std::string text;
    if (ListIndex < 0) return text;
    for (int column = 0; column < ColumnCount; column++) {
        if (column > 0) text += '\t';
        text += cellText(ListIndex, column);
    }
    return text;
}

void Listbox::userSelected(int row) {
    if (row < ListCount()) ListIndex = row < 0 ? -1 : row;
}

void Listbox::userClickedHeading(int column) {
    if (column < 0 || column >= ColumnCount || (MaySort && !MaySort())) return;
    descending_ = sorted_ && HeadingIndex == column && !descending_;
    sorted_ = true;
    std::vector<int> order = rows_.sortedOrder(column, descending_);
    rows_.reorder(order);
    HeadingIndex = column;
    structureChanged();
    for (size_t row = 0; row < order.size(); row++) {
        if (order[row] != ListIndex) continue;
        selectSilently(static_cast<int>(row));
        break;
    }
}

std::vector<int> Listbox::columnPixels(int listWidth) const {
    std::vector<std::string> entries = Split(ColumnWidths.get(), ",");
    size_t columns = ColumnCount > 0 ? static_cast<size_t>(ColumnCount) : 0;
    std::vector<int> pixels(columns, -1);
    int64_t rest = listWidth;
    int64_t unsized = 0;
    for (size_t column = 0; column < columns; column++) {
        std::string entry = column < entries.size() ? entries[column] : std::string();
        if (entry.empty()) {
            unsized++;
            continue;
        }
        double number = Val(entry);
        if (entry.back() == '%') number = static_cast<double>(listWidth) * number / 100;
        pixels[column] = std::max(0, toInt32(number));
        rest -= pixels[column];
    }
    for (int& width : pixels)
        if (width < 0) width = static_cast<int>(std::max(minShare, rest / unsized));
    return pixels;
}

}  // namespace bracken
