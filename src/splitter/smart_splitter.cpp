#include "splitter/smart_splitter.h"

#include <algorithm>

#include "framework/controls/panels.h"
#include "splitter/canvas_smart_splitter_debugger.h"

namespace bracken {

void SmartSplitter::initializeSmartSplitter() {
    if (initializedSmartSplitter || initializingSmartSplitter) return;
    initializingSmartSplitter = true;
    readDesignValues();
    chooseColors();
    assignCursor();
    if (!maxLimitPropSet) MaxLimit = static_cast<int>(axis().size(window()) - axis().extent(*this));
    setHandleType(HandleType);
    fillDimplePixels();
    unAttachAllControls();
    if (Open) Open();
    if (attached.empty()) attachNearbyControls();
    assignLimits();
    proportionValue = proportionAt(currentPosition());
    proportionAtOpen = proportionValue;
    initializedSmartSplitter = true;
    initializingSmartSplitter = false;
}

void SmartSplitter::readDesignValues() {
    isVertical = Width < Height;
    maxLimitPropSet = MaxLimit != 0;
    minLimitPropSet = MinLimit != 0;
    maxLimitOffsetPropSet = MaxLimitOffset != 0;
    minLimitOffsetPropSet = MinLimitOffset != 0;
    if (Debug) setDebug(true);
    if (SwapOrientation) isVertical = !isVertical;
    positionAtOpen = static_cast<int>(currentPosition());
    windowSizeAtOpen = static_cast<int>(axis().size(window()));
    windowSizeLast = windowSizeAtOpen;
    UseFocusRing = false;
    showWarningsDialogs = false;
    MaxLimitOffset = std::max(MaxLimitOffset, 0);
    MinLimitOffset = std::max(MinLimitOffset, 0);
    atMaxLimit = false;
    atMinLimit = false;
    doNotAttachEmbeddedControls = false;
    if (!minLimitPropSet) MinLimit = limitNotDerived;
    backgroundDark = usesDarkFrame();
}

void SmartSplitter::assignCursor() {
    if (conceal || !Enabled)
        MouseCursor = Cursor::standard;
    else
        MouseCursor = isVertical ? Cursor::splitterEastWest : Cursor::splitterNorthSouth;
}

bool SmartSplitter::usesDarkFrame() const {
    return window().Frame == FrameKind::dark &&
           dynamic_cast<TabPanel*>(static_cast<RectControl*>(Parent)) == nullptr;
}

void SmartSplitter::behave() {
    initializeSmartSplitter();
    assignLimits();
    moveDistance(0, true);
    refreshDebugCanvas(false);
}

void SmartSplitter::setConceal(bool value) {
    initializeSmartSplitter();
    conceal = value;
    Refresh(true);
}

void SmartSplitter::Event_Open() {
    initializeSmartSplitter();
}

void SmartSplitter::Event_Close() {
    unAttachAllControls();
    debugCanvas = nullptr;
    if (Close) Close();
}

void SmartSplitter::Event_Paint(class Graphics& g) {
    drawHandle();
    if (Paint) Paint(g);
}

std::optional<Canvas::Track> SmartSplitter::track() {
    if (conceal) return std::nullopt;
    const int present = position();
    return Track{MinLimit == limitNotDerived ? 0 : MinLimit, MaxLimit, present, isVertical};
}

void SmartSplitter::Event_MouseEnter() {
    assignCursor();
    if (MouseEnter) MouseEnter();
}

bool SmartSplitter::Event_MouseDown(int x, int y) {
    if (conceal) return false;
    assignLimits();
    mouseDownTriggered = true;
    mouseDownX = x;
    mouseDownY = y;
    positionAtMouseDown = position();
    refreshDebugCanvas(true);
    if (MouseDown) MouseDown(x, y);
    return true;
}

void SmartSplitter::Event_MouseDrag(int x, int y) {
    // Coordinates are relative to the splitter, so this is the distance left to move.
    moveDistance(isVertical ? x - mouseDownX : y - mouseDownY, false);
    markOnDebugCanvas();
    if (MouseDrag) MouseDrag(x, y);
}

void SmartSplitter::Event_MouseUp(int x, int y) {
    if (DisableLiveDrag) {
        int moved = position() - positionAtMouseDown;
        adjustAttachedControls(moved, false);
        if (Moved) Moved(moved);
    }
    mouseDownTriggered = false;
    if (DisableLiveDrag) window().Refresh(true);
    refreshDebugCanvas(true);
    if (MouseUp) MouseUp(x, y);
}

}  // namespace bracken
