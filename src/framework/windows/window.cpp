#include "framework/windows/window.h"

#include "framework/controls/buttons.h"
#include "framework/platform/platform.h"
#include "framework/threads/without_baton.h"
#include "framework/windows/windows.h"

namespace bracken {

Window::Window() : Title(*this, ""), Left(*this, 0), Top(*this, 0), Visible(*this, true) {}

Window::~Window() = default;

void Window::setUp(int width, int height) {
    CreateControls();
    AddMenuHandlers();
    laidOut_ = true;
    for (Control* control : controls()) control->Event_Open();
    resize(width, height);
    Event_Open();
    if (Visible && !closed_) Show();
}

void Window::Show() {
    if (closed_) return;
    Visible = true;
    Windows::get().toFront(*this);
    Platform::current().bringToFront(*this);
}

void Window::ShowModal() {
    auto self = shared_from_this();
    Show();
    withoutBaton([this] { Platform::current().runModal(*this); });
}

void Window::Close() {
    if (closed_) return;
    auto self = shared_from_this();
    closed_ = true;
    Event_Close();
    for (Control* control : controls()) control->Event_Close();
    Windows::get().remove(*this);
}

PushButton* Window::defaultButton() const {
    for (Control* control : controls()) {
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
    resize(width, height);
}

void Window::userClosed() {
    Close();
}

void Window::userPressedReturn() {
    if (PushButton* button = defaultButton()) button->userPressed();
}

}  // namespace bracken
