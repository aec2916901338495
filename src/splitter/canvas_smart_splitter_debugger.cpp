#include "splitter/canvas_smart_splitter_debugger.h"

#include <algorithm>
#include <utility>

#include "framework/controls/window_content.h"
#include "framework/dialogs/dialogs.h"
#include "framework/graphics/picture.h"
#include "framework/text/text.h"

namespace bracken {

namespace {

// Greys of the mask: the transparency of a mark.
const Color lineMask = RGB(0x44, 0x44, 0x44);
const Color labelMask = RGB(0x22, 0x22, 0x22);
const Color transparentMask = RGB(0xff, 0xff, 0xff);

}  // namespace

CanvasSmartSplitterDebugger::CanvasSmartSplitterDebugger(WindowContent& window, std::string name)
    : Canvas(window, std::move(name)) {
    TakesMouse = false;
}

void CanvasSmartSplitterDebugger::Event_Open() {
    LockLeft = true;
    LockTop = true;
    LockRight = true;
    LockBottom = true;
    place(0, 0, window().Width, window().Height);
    boxHeight = 11;
}

void CanvasSmartSplitterDebugger::Event_Paint(class Graphics& g) {
    int width = maxXdrawn - minXdrawn;
    int height = maxYdrawn - minYdrawn;
    if (debug && p != nullptr)
        g.DrawPicture(*p, minXdrawn, minYdrawn, width, height, minXdrawn, minYdrawn, width, height);
    if (Width != lastWidth || Height != lastHeight) clearP();
    lastWidth = Width;
    lastHeight = Height;
}

bool CanvasSmartSplitterDebugger::createP() {
    if (!debug || p != nullptr) return p == nullptr;
    ScreenInfo screen = Screen(0);
    p = NewPicture(screen.Width, screen.Height, screen.Depth);
    if (p == nullptr) {
        if (!std::exchange(alreadyWarned, true))
            MsgBox(
                "CanvasSmartSplitterDebugger can not be initialized.   Not enough available "
                "memory.");
        return true;
    }
    picture().PenWidth = 2;
    picture().PenHeight = 2;
    picture().TextFont = "Geneva";
    picture().TextSize = 9;
    picture().Bold = true;
    p->Transparent = 1;
    return false;
}

void CanvasSmartSplitterDebugger::clearP() {
    if (createP()) return;
    picture().ClearRect(0, 0, Width, Height);
    mask().ForeColor = transparentMask;
    mask().FillRect(0, 0, Width, Height);
    minXdrawn = Width;
    minYdrawn = Height;
    maxXdrawn = 0;
    maxYdrawn = 0;
}

void CanvasSmartSplitterDebugger::drawLine(int x1, int y1, int x2, int y2) {
    picture().DrawLine(x1, y1, x2, y2);
    mask().ForeColor = lineMask;
    mask().DrawLine(x1, y1, x2, y2);
}

void CanvasSmartSplitterDebugger::drawRect(int x, int y, int width, int height) {
    picture().DrawRect(x, y, width, height);
    mask().ForeColor = lineMask;
    mask().DrawRect(x, y, width, height);
    minXdrawn = std::min(minXdrawn, x);
    minYdrawn = std::min(minYdrawn, y);
    maxXdrawn = std::max(maxXdrawn, x + width);
    maxYdrawn = std::max(maxYdrawn, y + height);
}

// The pen is two pixels wide, with its top left corner at each point.
void CanvasSmartSplitterDebugger::drawX(const RectControl& c) {
    int right = c.Left + c.Width - 2;
    int bottom = c.Top + c.Height - 2;
    drawLine(c.Left, c.Top, right, bottom);
    drawLine(c.Left, bottom, right, c.Top);
}

void CanvasSmartSplitterDebugger::drawBox(const RectControl& c) {
    drawRect(c.Left, c.Top, c.Width, c.Height);
    if (!c.Visible) drawX(c);
}

void CanvasSmartSplitterDebugger::drawBoxedString(const std::string& text, int x, int y,
                                                  Align align) {
    int width = toInt32(picture().StringWidth(text) + 2.0);
    if (align == Align::center) x = toInt32(x - width / 2.0);
    if (align == Align::right) x -= width;
    picture().FillRect(x, y, width, boxHeight);
    mask().ForeColor = labelMask;
    mask().FillRect(x, y, width, boxHeight);
    Color oldColor = picture().ForeColor;
    picture().ForeColor = HSV(0, 0, 0.94);
    picture().DrawString(text, x + 1, y + 9);
    picture().ForeColor = oldColor;
}

void CanvasSmartSplitterDebugger::markControl(const RectControl& c) {
    if (p == nullptr) return;
    picture().ForeColor = RGB(200, 0, 0);
    drawBox(c);
    markDirty();
}

}  // namespace bracken
