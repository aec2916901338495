#include "framework/controls/popup_menu.h"

#include "framework/controls/window_content.h"
#include "framework/exception.h"

namespace bracken {

PopupMenu::PopupMenu(WindowContent& window, std::string name)
    : RectControl(window, std::move(name)), ListIndex(*this) {}

PopupMenu::SelectedRow& PopupMenu::SelectedRow::operator=(int row) {
    baton::assertHeld();
    menu_.index_ = row;
    menu_.markDirty();
    auto keep = menu_.window().weak_from_this().lock();
    if (menu_.Change) menu_.Change();
    return *this;
}

void PopupMenu::AddRow(const std::string& text) {
    rows_.push_back(text);
    markDirty();
}

void PopupMenu::DeleteAllRows() {
    rows_.clear();
    index_ = -1;
    markDirty();
}

const std::string& PopupMenu::List(int row) const {
    if (row < 0 || row >= ListCount()) throw IndexOutOfRangeException(name());
    return rows_[static_cast<size_t>(row)];
}

std::string PopupMenu::Text() const {
    return index_ >= 0 && index_ < ListCount() ? List(index_) : std::string();
}

void PopupMenu::userChose(int row) {
    if (row != index_ && row >= 0 && row < ListCount() && usable()) ListIndex = row;
}

}  // namespace bracken
