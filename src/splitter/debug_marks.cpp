#include "framework/text/text.h"
#include "splitter/canvas_smart_splitter_debugger.h"
#include "splitter/smart_splitter.h"

namespace bracken {

namespace {

const Color rangeGreen = RGB(0, 150, 0);
const Color zoneBlue = RGB(0, 0, 150);

}  // namespace

void CanvasSmartSplitterDebugger::markSplitter(const SmartSplitter& s, int minLimit, int maxLimit,
                                               bool vertical) {
    if (p == nullptr) return;
    picture().ForeColor = rangeGreen;
    drawBox(s);
    picture().ForeColor = zoneBlue;
    if (vertical)
        markUpright(s, minLimit, maxLimit);
    else
        markLying(s, minLimit, maxLimit);
    markDirty();
}

void CanvasSmartSplitterDebugger::markUpright(const SmartSplitter& s, int minLimit, int maxLimit) {
    int bottom = s.Top + s.Height - 2;
    double middle = s.Top + s.Height / 2.0;
    int zone = minLimit + s.MinLimitOffset;
    drawLine(zone, s.Top, zone, bottom);
    drawBoxedString("minLOffset=" + Str(s.MinLimitOffset), zone, toInt32(middle - boxHeight),
                    start);
    zone = maxLimit - s.MaxLimitOffset;
    drawLine(zone, s.Top, zone, bottom);
    drawBoxedString("maxLOffset=" + Str(s.MaxLimitOffset), zone, toInt32(middle), end);
    picture().ForeColor = rangeGreen;
    drawRect(minLimit, s.Top, maxLimit - minLimit, s.Height);
    drawLine(minLimit + 20, s.Top, maxLimit - 22, bottom);
    drawBoxedString("minLimit=" + Str(minLimit), minLimit, s.Top, start);
    drawBoxedString("maxLimit=" + Str(maxLimit), maxLimit, s.Top + s.Height - boxHeight, end);
}

void CanvasSmartSplitterDebugger::markLying(const SmartSplitter& s, int minLimit, int maxLimit) {
    int right = s.Left + s.Width - 2;
    int middle = toInt32(s.Left + s.Width / 2.0);
    int zone = minLimit + s.MinLimitOffset;
    drawLine(s.Left, zone, right, zone);
    drawBoxedString("minLOffset=" + Str(s.MinLimitOffset), middle, zone, centre);
    zone = maxLimit - s.MaxLimitOffset;
    drawLine(s.Left, zone, right, zone);
    drawBoxedString("maxLOffset=" + Str(s.MaxLimitOffset), middle, zone - boxHeight + 2, centre);
    picture().ForeColor = rangeGreen;
    drawRect(s.Left, minLimit, s.Width, maxLimit - minLimit);
    drawLine(s.Left + 20, minLimit, s.Left + s.Width - 22, maxLimit - 2);
    drawBoxedString("minLimit=" + Str(minLimit), s.Left, minLimit, start);
    drawBoxedString("maxLimit=" + Str(maxLimit), s.Left + s.Width, maxLimit - boxHeight, end);
}

}  // namespace bracken
