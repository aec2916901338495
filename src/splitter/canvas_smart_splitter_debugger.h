#pragma once

#include <string>

#include "framework/controls/canvas.h"
#include "framework/graphics/picture.h"
#include "framework/ref.h"

namespace bracken {

class SmartSplitter;

// An overlay over its whole window on which splitters show what they do: green for a splitter and
// its range, blue for the zones at its limits, red for the attached controls, crossed if hidden.
// Put one into a window, created last so that it lies on top, and call setDebug on a splitter.
class CanvasSmartSplitterDebugger : public Canvas {
  public:
    CanvasSmartSplitterDebugger(WindowContent& window, std::string name);

    // Whether a splitter uses it.
    bool debug = false;

    void Event_Open() override;
    void Event_Paint(class Graphics& g) override;
    // Wipes the drawing; makes it first if there is none.
    virtual void clearP();
    virtual void markControl(const RectControl& c);
    virtual void markSplitter(const SmartSplitter& s, int minLimit, int maxLimit, bool vertical);

  private:
    friend class SmartSplitterProbe;

    enum Align { start = 0, centre = 1, end = 2 };

    void drawBoxedString(const std::string& text, int x, int y, Align align);
    void drawX(const RectControl& c);
    void drawBox(const RectControl& c);
    void drawLine(int x1, int y1, int x2, int y2);
    void drawRect(int x, int y, int width, int height);
    void markUpright(const SmartSplitter& s, int minLimit, int maxLimit);
    void markLying(const SmartSplitter& s, int minLimit, int maxLimit);
    // True if there is no picture afterwards.
    bool createP();
    class Graphics& picture() {
        return p->Graphics;
    }
    class Graphics& mask() {
        return p->Mask(true)->Graphics;
    }

    // The drawing, in window coordinates; as large as the screen, kept for life.
    Ref<Picture> p;
    int lastWidth = 0;
    int lastHeight = 0;
    int boxHeight = 0;
    // The area that boxes have been drawn in; only that is shown.
    int minXdrawn = 0;
    int minYdrawn = 0;
    int maxXdrawn = 0;
    int maxYdrawn = 0;
    bool alreadyWarned = false;
};

}  // namespace bracken
