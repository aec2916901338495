#pragma once

#include <string>

#include "framework/controls/canvas.h"
#include "framework/graphics/picture.h"
#include "framework/ref.h"

namespace bracken {

class SmartSplitter;

// An overlay over its whole window on which splitters show what they do: a splitter and its range
// in green, the zones at its limits in blue, the attached controls in red, crossed out if hidden.
// Put one into a window, created last so that it lies on top, and call setDebug on a splitter. What
// it draws of a splitter is in debugging.cpp.
class CanvasSmartSplitterDebugger : public Canvas {
  public:
    CanvasSmartSplitterDebugger(WindowContent& window, std::string name);

    // Whether a splitter uses it.
    bool debug = false;

    void Event_Open() override;
    void Event_Paint(class Graphics& g) override;
    // Clears the drawing; creates it first if there is none.
    virtual void clearP();
    virtual void markControl(const RectControl& c);
    virtual void markSplitter(const SmartSplitter& s, int minLimit, int maxLimit, bool vertical);

  private:
    enum class Align { left, center, right };

    void drawBoxedString(const std::string& text, int x, int y, Align align);
    void drawX(const RectControl& c);
    void drawBox(const RectControl& c);
    void drawLine(int x1, int y1, int x2, int y2);
    void drawRect(int x, int y, int width, int height);
    void markVertical(const SmartSplitter& s, int minLimit, int maxLimit);
    void markHorizontal(const SmartSplitter& s, int minLimit, int maxLimit);
    // Returns true if there is still no picture.
    bool createP();
    class Graphics& picture() {
        return p->Graphics;
    }
    class Graphics& mask() {
        return p->Mask(true)->Graphics;
    }

    // The drawing, in window coordinates; as large as the screen, never released.
    Ref<Picture> p;
    int lastWidth = 0;
    int lastHeight = 0;
    int boxHeight = 0;
    // The bounds of the boxes drawn; only that area is shown.
    int minXdrawn = 0;
    int minYdrawn = 0;
    int maxXdrawn = 0;
    int maxYdrawn = 0;
    bool alreadyWarned = false;
};

}  // namespace bracken
