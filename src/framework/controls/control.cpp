#include "framework/controls/control.h"

#include "framework/controls/window_content.h"

namespace bracken {

Control::Control(WindowContent& window, std::string name)
    : window_(window), name_(std::move(name)) {
    window.controls_.push_back(this);
}

RectControl::RectControl(WindowContent& window, std::string name)
    : Control(window, std::move(name)),
      Left(*this, 0, [this](int old) { moveContents(Left - old, 0); }),
      Top(*this, 0, [this](int old) { moveContents(0, Top - old); }),
      Width(*this, 0),
      Height(*this, 0),
      Visible(*this, true, [this](bool /*old*/) { markContents(); }),
      Enabled(*this, true),
      Parent(*this) {}

RectControl::ParentLink& RectControl::ParentLink::operator=(RectControl* parent) {
    if (parent_ != nullptr) std::erase(parent_->contents_, &child_);
    parent_ = parent;
    if (parent_ != nullptr) parent_->contents_.push_back(&child_);
    return *this;
}

void RectControl::place(int left, int top, int width, int height) {
    Left = left;
    Top = top;
    Width = width;
    Height = height;
}

void RectControl::Refresh(bool /*eraseBackground*/) {
    markDirty();
}

bool RectControl::showing() const {
    if (!Visible) return false;
    return Parent == nullptr || (Parent->showsPage(TabPanelIndex) && Parent->showing());
}

void RectControl::markContents() {
    for (RectControl* inner : contents_) {
        inner->markDirty();
        inner->markContents();
    }
}

void RectControl::moveContents(int dx, int dy) {
    if (!window().laidOut()) return;
    for (RectControl* inner : contents_) {
        inner->Left = inner->Left + dx;
        inner->Top = inner->Top + dy;
    }
}

}  // namespace bracken
