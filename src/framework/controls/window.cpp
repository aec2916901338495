#include "framework/controls/window.h"

#include <algorithm>

#include "framework/controls/push_button.h"
#include "framework/controls/windows.h"
#include "framework/dialogs/platform.h"

namespace bracken {

Window::Window()
    : Title(*this, ""),
      Left(*this, 0),
      Top(*this, 0),
      Width(*this, 0, [this](int old) { layOut(Width - old, 0); }),
      Height(*this, 0, [this](int old) { layOut(0, Height - old); }),
      Visible(*this, true) {}

Window::~Window() = default;

void Window::enrol(Control& control) {
    controls_.push_back(&control);
}

Control* Window::control(const std::string& name) const {
    for (Control* control : controls_)
        if (control->name() == name) return control;
    return nullptr;
}

void Window::open() {
    CreateControls();
    AddMenuHandlers();
    laidOut_ = true;
    Event_Open();
    if (Visible && !closed_) Show();
}

void Window::layOut(int dx, int dy) {
    if (!laidOut_) return;
    for (Control* control : controls_) {
        auto* rect = dynamic_cast<RectControl*>(control);
        if (rect == nullptr) continue;
        if (rect->LockRight && rect->LockLeft)
            rect->Width = rect->Width + dx;
        else if (rect->LockRight)
            rect->Left = rect->Left + dx;
        if (rect->LockBottom && rect->LockTop)
            rect->Height = rect->Height + dy;
        else if (rect->LockBottom)
            rect->Top = rect->Top + dy;
    }
    Event_Resized();
}

void Window::Show() {
    if (closed_) return;
    Visible = true;
    Windows::open().toFront(*this);
    Platform::current().bringToFront(*this);
}

void Window::Close() {
    if (closed_) return;
    auto self = shared_from_this();
    closed_ = true;
    Event_Close();
    Windows::open().remove(*this);
}

PushButton* Window::defaultButton() const {
    for (Control* control : controls_) {
        auto* button = dynamic_cast<PushButton*>(control);
        if (button != nullptr && button->Default && button->usable()) return button;
    }
    return nullptr;
}

void Window::addMenuHandler(const std::string& itemName, MenuItem::Handler handler) {
    menuHandlers_[itemName] = std::move(handler);
}

bool Window::handleMenu(const std::string& itemName) {
    auto found = menuHandlers_.find(itemName);
    auto self = shared_from_this();
    return found != menuHandlers_.end() && found->second();
}

void Window::userMoved(int left, int top) {
    Left = left;
    Top = top;
}

void Window::userResized(int width, int height) {
    auto self = shared_from_this();
    Width = width;
    Height = height;
}

void Window::userClosed() {
    Close();
}

void Window::userPressedReturn() {
    if (PushButton* button = defaultButton()) button->userPressed();
}

}  // namespace bracken
