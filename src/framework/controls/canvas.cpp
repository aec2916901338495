#include "framework/controls/canvas.h"

#include <cstdlib>
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

// Its coordinates move with it, so that they say how far it has still to go.
void Canvas::drag(const Track& track, int pixels) {
    userDragged(track.sideways ? pixels : 0, track.sideways ? 0 : pixels);
}

void Canvas::userMovedTo(int position) {
    const auto from = track();
    if (!from) return;
    userPressed(0, 0);
    drag(*from, position - from->position);
    userReleased(0, 0);
}

void Canvas::userStepped(int pixels) {
    const auto from = track();
    if (!from || pixels == 0) return;
    userPressed(0, 0);
    const int range = from->max - from->min;
    for (int way = pixels; track()->position == from->position; way += pixels) {
        drag(*from, way);
        if (std::abs(way) > range) break;
    }
    userReleased(0, 0);
}

}  // namespace bracken
