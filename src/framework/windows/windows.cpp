#include "framework/windows/windows.h"

#include <algorithm>

#include "framework/platform/platform.h"

namespace bracken {

namespace {

// A new window's distance from the one opened before it, right and down.
constexpr int cascadeStep = 24;
// Pixels above a window's content for its title bar and its menu bar.
constexpr int headroom = 64;

// A window that the user can't resize keeps its size: what it loses could not be reached.
int fitted(const Window& window, int size, int room) {
    return window.Resizeable && room > 0 ? std::min(size, room) : size;
}

auto position(std::vector<std::shared_ptr<Window>>& all, const Window& window) {
    return std::find_if(all.begin(), all.end(),
                        [&](auto& candidate) { return candidate.get() == &window; });
}

}  // namespace

Windows& Windows::get() {
    static Windows windows;
    return windows;
}

Window* Windows::front() const {
    for (auto& window : all_)
        if (window->Visible) return window.get();
    return nullptr;
}

void Windows::add(const std::shared_ptr<Window>& window) {
    int step = cascadeStep * static_cast<int>(all_.size());
    all_.insert(all_.begin(), window);
    window->Layout();
    ScreenRect area = Platform::current().workArea();
    int width = fitted(*window, window->Width, area.width);
    int height = fitted(*window, window->Height, area.height - headroom);
    int left = area.left + (area.width - width) / 2 + step;
    int top = area.top + (area.height - height) / 3 + step;
    window->Left = std::max(std::min(left, area.left + area.width - width), area.left);
    window->Top = std::max(std::min(top, area.top + area.height - height), area.top + headroom);
    window->setUp(width, height);
    requestFrame();
}

void Windows::toFront(Window& window) {
    auto at = position(all_, window);
    if (at != all_.end()) std::rotate(all_.begin(), at, at + 1);
}

void Windows::remove(Window& window) {
    auto at = position(all_, window);
    if (at != all_.end()) all_.erase(at);
    requestFrame();
}

void Windows::closeAll() {
    quitting_ = true;
    auto windows = all_;
    for (auto& window : windows) window->Close();
}

void Windows::reset() {
    all_.clear();
    quitting_ = false;
    beginFrame();
}

}  // namespace bracken
