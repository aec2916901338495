#include "framework/text/text.h"
#include "splitter/smart_splitter.h"

namespace bracken {

Color SmartSplitter::grey(double value) {
    return HSV(0, 0, value);
}

void SmartSplitter::chooseColors() {
    colorLight = grey(backgroundDark ? 0.58 : 0.75);
    colorLightDisabled = grey(backgroundDark ? 0.63 : 0.87);
    colorMedium = grey(backgroundDark ? 0.5 : 0.62);
    colorMediumDisabled = grey(backgroundDark ? 0.55 : 0.82);
    colorDark = grey(backgroundDark ? 0.42 : 0.55);
    colorDarkDisabled = grey(backgroundDark ? 0.5 : 0.7);
}

void SmartSplitter::setHandleType(int value) {
    initializeSmartSplitter();
    switch (value) {
        case 0:
            chooseHandle();
            break;
        case 1:
            setHandle(false, false, 3);
            break;
        case 2:
            setHandle(false, true, 2);
            break;
        case 3:
            setHandle(true, false, 3);
            break;
        case 4:
            setHandle(true, true, 1);
            break;
        default:
            handleCount = 0;
    }
    Refresh(true);
}

void SmartSplitter::setHandle(bool dimple, bool large, int count) {
    handleDimple = dimple;
    handleLarge = large;
    handleCount = count;
}

void SmartSplitter::chooseHandle() {
    int64_t thickness = axis().extent(*this);
    int64_t length = crossAxis().extent(*this);
    if (usesDarkFrame()) {
        bool large = thickness > 5 && length > 20;
        setHandle(true, large, large ? 1 : 3);
    } else {
        bool large = thickness > 12 && length > 120;
        setHandle(false, large, large || thickness < 10 ? 2 : 3);
    }
}

void SmartSplitter::drawHandle() {
    if (conceal) return;
    int centerX = toInt32(Width / 2.0);
    int centerY = toInt32(Height / 2.0);
    drawGhost();
    double spacing = handleDimple ? (handleLarge ? 5.0 : 3.0) : (handleLarge ? 1.5 : 1.0);
    double last = handleCount * spacing;
    int offset = toInt32(spacing - handleCount * spacing);
    // Dimples form a line along the splitter, bars stand side by side across it.
    for (; offset <= last; offset = toInt32(offset + spacing * 2)) {
        if (handleDimple)
            drawDimple(isVertical ? centerX : centerX - offset,
                       isVertical ? centerY - offset : centerY);
        else
            drawBar(isVertical ? centerX + offset : centerX,
                    isVertical ? centerY : centerY + offset);
    }
}

// The frame that is dragged while the attached controls stay in place.
void SmartSplitter::drawGhost() {
    if (!DisableLiveDrag || !mouseDownTriggered) return;
    int offset = Top < 0 ? Top : 0;
    Graphics.ForeColor = colorMedium;
    Graphics.ClearRect(1, offset + 1, Width - 2, Height - offset - 2);
    Graphics.DrawRect(0, offset, Width, Height - offset);
}

bool SmartSplitter::looksEnabled() const {
    return (Active && Enabled) || !initializedSmartSplitter;
}

void SmartSplitter::drawBar(int x, int y) {
    bool enabled = looksEnabled();
    int half = handleLarge ? 9 : 5;
    // Draws a line given in coordinates along and across the bar.
    auto line = [&](int along1, int across1, int along2, int across2) {
        if (isVertical)
            Graphics.DrawLine(x + across1, y + along1, x + across2, y + along2);
        else
            Graphics.DrawLine(x + along1, y + across1, x + along2, y + across2);
    };
    Color light = enabled ? colorLight : colorLightDisabled;
    Color dark = enabled ? colorDark : colorDarkDisabled;
    Graphics.ForeColor = handleLarge ? light : dark;
    line(-half, 0, half, 0);
    if (!handleLarge) return;
    Graphics.ForeColor = enabled ? colorMedium : colorMediumDisabled;
    line(-half, -1, half, -1);
    line(-half, -1, -half, 0);
    line(half, -1, half, 0);
}

}  // namespace bracken
