#include "framework/controls/canvas.h"

#include <utility>

namespace bracken {

Canvas::Canvas(WindowContent& window, std::string name)
    : RectControl(window, std::move(name)),
      Active(*this, true),
      MouseCursor(*this, Cursor::standard),
      Graphics(pixels_, clearPixel) {}

const Pixels& Canvas::paint() {
    pixels_.reset(Width, Height, clearPixel);
    Event_Paint(Graphics);
    return pixels_;
}

void Canvas::userEntered() {
    Event_MouseEnter();
}

void Canvas::userPressed(int x, int y) {
    claimed_ = usable() && Event_MouseDown(x, y);
}

void Canvas::userDragged(int x, int y) {
    if (claimed_) Event_MouseDrag(x, y);
}

void Canvas::userReleased(int x, int y) {
    if (std::exchange(claimed_, false)) Event_MouseUp(x, y);
}

}  // namespace bracken
