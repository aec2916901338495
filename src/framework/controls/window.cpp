#include "framework/controls/window.h"

#include <algorithm>

#include "framework/controls/push_button.h"
#include "framework/controls/windows.h"
#include "framework/dialogs/platform.h"
#include "framework/threads/without_baton.h"

namespace bracken {

namespace {

// A control's place before its window changes size.
struct LockedPlace {
    RectControl* control;
    int left;
    int top;
    // How many containers it lies in.
    int depth = 0;

    explicit LockedPlace(RectControl& rect) : control(&rect), left(rect.Left), top(rect.Top) {
        for (RectControl* outer = rect.Parent; outer != nullptr; outer = outer->Parent) ++depth;
    }

    void follow(int dx, int dy) const {
        if (control->LockLeft || control->LockRight)
            control->Left = left + (control->LockLeft ? 0 : dx);
        if (control->LockLeft && control->LockRight) control->Width = control->Width + dx;
        if (control->LockTop || control->LockBottom)
            control->Top = top + (control->LockTop ? 0 : dy);
        if (control->LockTop && control->LockBottom) control->Height = control->Height + dy;
    }
};

}  // namespace

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
    for (Control* control : controls_) control->Event_Open();
    Event_Open();
    if (Visible && !closed_) Show();
}

void Window::layOut(int dx, int dy) {
    if (!laidOut_) return;
    layOutControls(dx, dy);
    Event_Resized();
}

// Locks hold a control to the window's edges, also one in a container that moves along: its place
// is worked out from before, and set after that of the container, which carries it.
void Window::layOutControls(int dx, int dy) {
    std::vector<LockedPlace> places;
    for (Control* control : controls_)
        if (auto* rect = dynamic_cast<RectControl*>(control)) places.emplace_back(*rect);
    std::stable_sort(places.begin(), places.end(),
                     [](const LockedPlace& a, const LockedPlace& b) { return a.depth < b.depth; });
    for (const LockedPlace& place : places) place.follow(dx, dy);
}

void Window::Refresh(bool eraseBackground) {
    for (Control* control : controls_)
        if (auto* rect = dynamic_cast<RectControl*>(control)) rect->Refresh(eraseBackground);
}

void Window::Show() {
    if (closed_) return;
    Visible = true;
    Windows::open().toFront(*this);
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
    for (Control* control : controls_) control->Event_Close();
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
    int dx = width - Width;
    int dy = height - Height;
    if (dx == 0 && dy == 0) return;
    // Both sizes first: it is one event.
    laidOut_ = false;
    Width = width;
    Height = height;
    laidOut_ = true;
    layOut(dx, dy);
}

void Window::userClosed() {
    Close();
}

void Window::userPressedReturn() {
    if (PushButton* button = defaultButton()) button->userPressed();
}

}  // namespace bracken
