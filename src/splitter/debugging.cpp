#include "framework/controls/window_content.h"
#include "framework/dialogs/dialogs.h"
#include "framework/exception.h"
#include "framework/text/text.h"
#include "splitter/canvas_smart_splitter_debugger.h"
#include "splitter/smart_splitter.h"

namespace bracken {

namespace {

const Color rangeGreen = RGB(0, 150, 0);
const Color zoneBlue = RGB(0, 0, 150);

}  // namespace

void SmartSplitter::setDebug(bool value) {
    initializeSmartSplitter();
    Debug = value;
    if (!value) {
        if (debugCanvas != nullptr) {
            debugCanvas->debug = false;
            refreshDebugCanvas(true);
        }
        debugCanvas = nullptr;
    } else if (CanvasSmartSplitterDebugger* found = findDebugCanvas()) {
        debugCanvas = found;
        debugCanvas->debug = true;
    } else if (debugCanvas == nullptr) {
        MsgBox("SmartSplitter '" + name() +
               "' needs a CanvasSmartSplitterDebugger to be present in the window for debug mode "
               "to work.");
        Debug = false;
    }
    refreshDebugCanvas(true);
}

CanvasSmartSplitterDebugger* SmartSplitter::findDebugCanvas() const {
    for (Control* control : window().controls())
        if (auto* found = dynamic_cast<CanvasSmartSplitterDebugger*>(control)) return found;
    return nullptr;
}

void SmartSplitter::refreshDebugCanvas(bool clearFirst) {
    if (debugCanvas == nullptr) return;
    if (clearFirst) debugCanvas->clearP();
    markOnDebugCanvas();
    // Makes the overlay repaint.
    debugCanvas->Visible = false;
    debugCanvas->Visible = true;
}

void SmartSplitter::markOnDebugCanvas() {
    if (debugCanvas != nullptr) debugCanvas->markSplitter(*this, MinLimit, MaxLimit, isVertical);
}

void SmartSplitter::clearDebugCanvas() {
    if (debugCanvas == nullptr) throw NilObjectException("no overlay to debug on");
    debugCanvas->clearP();
}

void CanvasSmartSplitterDebugger::markSplitter(const SmartSplitter& s, int minLimit, int maxLimit,
                                               bool vertical) {
    if (p == nullptr) return;
    picture().ForeColor = rangeGreen;
    drawBox(s);
    picture().ForeColor = zoneBlue;
    if (vertical)
        markVertical(s, minLimit, maxLimit);
    else
        markHorizontal(s, minLimit, maxLimit);
    markDirty();
}

void CanvasSmartSplitterDebugger::markVertical(const SmartSplitter& s, int minLimit, int maxLimit) {
    int bottom = s.Top + s.Height - 2;
    double middle = s.Top + s.Height / 2.0;
    int zone = minLimit + s.MinLimitOffset;
    drawLine(zone, s.Top, zone, bottom);
    drawBoxedString("minLOffset=" + Str(s.MinLimitOffset), zone, toInt32(middle - boxHeight),
                    Align::left);
    zone = maxLimit - s.MaxLimitOffset;
    drawLine(zone, s.Top, zone, bottom);
    drawBoxedString("maxLOffset=" + Str(s.MaxLimitOffset), zone, toInt32(middle), Align::right);
    picture().ForeColor = rangeGreen;
    drawRect(minLimit, s.Top, maxLimit - minLimit, s.Height);
    drawLine(minLimit + 20, s.Top, maxLimit - 22, bottom);
    drawBoxedString("minLimit=" + Str(minLimit), minLimit, s.Top, Align::left);
    drawBoxedString("maxLimit=" + Str(maxLimit), maxLimit, s.Top + s.Height - boxHeight,
                    Align::right);
}

void CanvasSmartSplitterDebugger::markHorizontal(const SmartSplitter& s, int minLimit,
                                                 int maxLimit) {
    int right = s.Left + s.Width - 2;
    int middle = toInt32(s.Left + s.Width / 2.0);
    int zone = minLimit + s.MinLimitOffset;
    drawLine(s.Left, zone, right, zone);
    drawBoxedString("minLOffset=" + Str(s.MinLimitOffset), middle, zone, Align::center);
    zone = maxLimit - s.MaxLimitOffset;
    drawLine(s.Left, zone, right, zone);
    drawBoxedString("maxLOffset=" + Str(s.MaxLimitOffset), middle, zone - boxHeight + 2,
                    Align::center);
    picture().ForeColor = rangeGreen;
    drawRect(s.Left, minLimit, s.Width, maxLimit - minLimit);
    drawLine(s.Left + 20, minLimit, s.Left + s.Width - 22, maxLimit - 2);
    drawBoxedString("minLimit=" + Str(minLimit), s.Left, minLimit, Align::left);
    drawBoxedString("maxLimit=" + Str(maxLimit), s.Left + s.Width, maxLimit - boxHeight,
                    Align::right);
}

}  // namespace bracken
