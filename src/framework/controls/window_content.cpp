#include "framework/controls/window_content.h"

#include <algorithm>

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

// Locks keep a control's distance from the window's edges, also in a container, which moves what it
// contains. So all places are noted first, and a control's is set after its container's.
void applyLocks(const std::vector<Control*>& controls, int dx, int dy) {
    std::vector<LockedPlace> places;
    for (Control* control : controls)
        if (auto* rect = dynamic_cast<RectControl*>(control)) places.emplace_back(*rect);
    std::stable_sort(places.begin(), places.end(),
                     [](const LockedPlace& a, const LockedPlace& b) { return a.depth < b.depth; });
    for (const LockedPlace& place : places) place.follow(dx, dy);
}

}  // namespace

WindowContent::WindowContent()
    : Width(*this, 0, [this](int old) { layOut(Width - old, 0); }),
      Height(*this, 0, [this](int old) { layOut(0, Height - old); }) {}

WindowContent::~WindowContent() = default;

Control* WindowContent::control(const std::string& name) const {
    for (Control* control : controls_)
        if (control->name() == name) return control;
    return nullptr;
}

void WindowContent::Refresh(bool eraseBackground) {
    for (Control* control : controls_)
        if (auto* rect = dynamic_cast<RectControl*>(control)) rect->Refresh(eraseBackground);
}

void WindowContent::resize(int width, int height) {
    int dx = width - Width;
    int dy = height - Height;
    if (dx == 0 && dy == 0) return;
    bool laidOut = std::exchange(laidOut_, false);
    Width = width;
    Height = height;
    laidOut_ = laidOut;
    layOut(dx, dy);
}

void WindowContent::layOut(int dx, int dy) {
    if (!laidOut_) return;
    applyLocks(controls_, dx, dy);
    Event_Resized();
}

}  // namespace bracken
