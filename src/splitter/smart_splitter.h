#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "framework/controls/canvas.h"
#include "framework/values/variant.h"
#include "splitter/axis.h"

namespace bracken {

class CanvasSmartSplitterDebugger;

// A divider that the user drags. When it moves, or when its window changes size and `behave` is
// called, the controls attached to it move, resize, centre, hide or show, so that they share the
// window. Left alone, it attaches the controls that touch it and works out its limits from them.
//
// A vertical splitter moves left and right, a horizontal one up and down. The position of a control
// below is its Left or Top, its extent the Width or Height, whichever is along the axis that the
// splitter moves on; the min end is that of the small coordinates. Attached controls and the
// overlay belong to the same window.
//
// Operations may be called before the window opens: the first one sets the splitter up. Main
// thread, holding the baton.
//
// Where the operations are implemented:
//   smart_splitter.cpp  set-up, behave, setConceal, events of mouse and window
//   attaching.cpp       attach and unAttach, the controls that bound the ends
//   suggestions.cpp     the role of a control by its class, locks and scroll bars
//   roles.cpp           the setAttachedControl... operations, warnings
//   limits.cpp          limits and offsets
//   moving.cpp          moves, position, proportion
//   adjusting.cpp       what a move does to the attached controls
//   painting.cpp        colours, handle types, bars; dimples.cpp: dimples
//   debugging.cpp       setDebug, the overlay's refresh and marks
class SmartSplitter : public Canvas {
  public:
    using Canvas::Canvas;

    // Set by the window's author before opening. 0 in a limit or offset: the splitter derives it.

    // Outermost positions, and the widths of the zones inside them in which it can't stay.
    int MaxLimit = 0;
    int MinLimit = 0;
    int MaxLimitOffset = 0;
    int MinLimitOffset = 0;
    // Stop at the zone instead of snapping to the limit.
    bool StopAtMinOffset = false;
    bool StopAtMaxOffset = false;
    // Keeps its proportion of the range when the window changes size.
    bool StayProportional = false;
    // The attached controls follow only at mouse up.
    bool DisableLiveDrag = false;

    // Set in the Open event or later: set-up overwrites them.

    bool doNotAttachEmbeddedControls = false;
    // Shows advice to the window's author in message boxes.
    bool showWarningsDialogs = false;
    bool handleLarge = false;
    bool handleDimple = false;
    int handleCount = 0;

    // Handlers of the window, each called if it is set.

    // During set-up; if it attaches any control, the splitter attaches none by itself.
    std::function<void()> Open;
    // The distance moved, 0 after a `behave` that left it in place.
    std::function<void(int distance)> Moved;
    std::function<void(int x, int y)> MouseDown;
    std::function<void(int x, int y)> MouseUp;
    std::function<void(class Graphics& g)> Paint;
    std::function<void()> Close;
    std::function<void()> MouseEnter;
    std::function<void(int x, int y)> MouseDrag;

    void Event_Close() override;
    void Event_MouseEnter() override;
    void Event_MouseUp(int x, int y) override;
    void Event_MouseDrag(int x, int y) override;
    bool Event_MouseDown(int x, int y) override;
    void Event_Open() override;
    void Event_Paint(class Graphics& g) override;
    // Nothing while it is concealed.
    std::optional<Track> track() override;

    // Attaches every control of the window that touches it.
    virtual void attachNearbyControls();
    // Attaches one control, with a role by rule. Ignores nil, the splitter itself, a line, and a
    // control that is attached already.
    virtual void attach(RectControl* control);
    // A limit set here no longer follows a control.
    virtual void setMaxLimit(int value);
    virtual void setMinLimit(int value);
    virtual void setMaxLimitOffset(int value);
    virtual void setMinLimitOffset(int value);
    // Moves back to where it was at opening, adapted to the window's current size.
    virtual void resetPosition();
    virtual void setPosition(int value);
    // All moves go through here: limits and zones restrict `distance`. `behaving` is true if a
    // change of the window is the cause, not the user.
    virtual void moveDistance(int distance, bool behaving);
    // The control that bounds an end; with `onlyIfFurther` only if it lies further out.
    virtual void setMaxAttachedControl(RectControl* control, bool onlyIfFurther);
    virtual void setMinAttachedControl(RectControl* control, bool onlyIfFurther);
    // The role of one attached control.
    virtual void setAttachedControlMinSizeVisible(RectControl* control, int value);
    virtual void setAttachedControlShouldResize(RectControl* control, bool value);
    virtual void setAttachedControlShouldMove(RectControl* control, bool value);
    // To be called when the window has changed size: enforces limits, proportion and visibility.
    virtual void behave();
    // Detaches a control and those inside it; sizes, visibility and limits stay.
    virtual void unAttach(RectControl* control, bool silently);
    // 0.0 is the min end of the range, 1.0 the max end.
    virtual void setProportion(const Variant& value);
    virtual void setAttachedControlShouldCenter(RectControl* control, bool value);
    virtual void unAttachAllControls();
    // Makes the zone end where the control ends.
    virtual void setMinLimitOffset(RectControl* control);
    virtual double proportion();
    virtual int position();
    // Shows what it does on the window's overlay, see CanvasSmartSplitterDebugger.
    virtual void setDebug(bool value);
    // Neither drawn nor draggable.
    virtual void setConceal(bool value);
    virtual void setMaxLimitOffset(RectControl* control);
    // 0 by size and window, 1 small bars, 2 large bars, 3 small dimples, 4 a large dimple, any
    // other value none.
    virtual void setHandleType(int value);
    virtual void setAttachedControlNormallyVisible(RectControl* control, bool value);

  protected:
    // Swaps the orientation that its shape gives; set before opening.
    bool SwapOrientation = false;

    // At set-up; windowSizeLast when the limits were last assigned.
    int positionAtOpen = 0;
    int windowSizeAtOpen = 0;
    int windowSizeLast = 0;
    double proportionValue = 0;
    double proportionAtOpen = 0;
    // Whether the author gave a value, which a derived one doesn't overwrite then.
    bool minLimitPropSet = false;
    bool minLimitOffsetPropSet = false;

    // Whether a drag is in progress, the mouse at its start in the splitter's own coordinates, and
    // the splitter's position then.
    bool mouseDownTriggered = false;
    int mouseDownX = 0;
    int mouseDownY = 0;
    int positionAtMouseDown = 0;

  private:
    // Gives the tests access to the private state.
    friend class SmartSplitterProbe;

    struct Attached {
        RectControl* control = nullptr;
        // On the min side.
        bool isBefore = false;
        // Extent below which it is hidden.
        int minSizeVisible = 0;
        bool normallyVisible = false;
        bool shouldCenter = false;
        bool shouldMove = false;
        bool shouldResize = false;
        // Extent when it was attached; never read.
        int size = 0;
    };
    // Position and extent along the axis.
    struct Span {
        int64_t position;
        int64_t extent;
    };
    // One end of the range in a move.
    struct End {
        bool isMin;
        // In and out: whether the last move snapped to the limit.
        bool& snapped;
        // Whether it stops at the zone instead.
        bool stops;
    };
    // Brightness of a large dimple's pixels, by column and row from 1 to 5; index 0 is not used. A
    // value below 0 is transparent; one above 1 is as bright as 1.
    using DimplePixels = std::array<std::array<double, 6>, 6>;

    // In MinLimit until the limit has been derived; treated as 0 afterwards.
    static constexpr int limitNotDerived = 9999;

    void initializeSmartSplitter();
    void readDesignValues();
    void chooseColors();
    void fillDimplePixels();
    void assignCursor();
    bool usesDarkFrame() const;
    const Axis& axis() const { return isVertical ? Axis::x() : Axis::y(); }
    // The axis that it doesn't move on.
    const Axis& crossAxis() const { return isVertical ? Axis::y() : Axis::x(); }
    int64_t currentPosition() const { return axis().position(*this); }

    bool touches(const RectControl& control) const;
    bool sharesPageWith(const RectControl& control) const;
    bool isAttached(const RectControl* control) const { return indexOf(control) >= 0; }
    // -1 if it is null or not attached.
    int indexOf(const RectControl* control) const;
    // Defaults by a control's class, locks and scroll bars, so that a window's author need not give
    // any. Sizes are pixels along the axis.
    int suggestMinSizeControlShouldBeVisible(const RectControl& control) const;
    bool suggestWhetherControlShouldResize(const RectControl& control) const;
    // The space to keep for the control.
    int suggestOffsetSizeForControl(const RectControl& control) const;
    // Whether its class usually contains other controls.
    static bool controlCommonlyHasEmbeddedControls(const RectControl& control);
    void chooseRole(Attached& entry, bool parentAttached);
    void raiseOffset(const Attached& entry);
    void attachContents(RectControl& container);
    // Changes the control's entry; if it has none, warns in the operation's name and returns false.
    bool changeAttached(RectControl* control, const char* operation,
                        const std::function<void(Attached&)>& change);
    void warningForControlNotAttached(const RectControl* control, const std::string& methodName);
    bool warningIfNonAttached(const std::string& methodName);

    void assignLimits();
    int64_t snappedOrStopped(int64_t distance, const End& end, bool behaving);
    void followMove(int distance, bool behaving);
    void updateProportion(int64_t position);
    double proportionAt(int64_t position) const;

    void adjustAttachedControls(int distance, bool behaving);
    Span newSpan(const Attached& entry, int distance) const;
    void apply(const Attached& entry, const Span& span);
    bool shouldShow(const Attached& entry, int64_t extent) const;
    bool isOverlapped(const Attached& entry) const;
    void adjustNestedSplitters();

    void refreshDebugCanvas(bool clearFirst);
    void markOnDebugCanvas();
    void clearDebugCanvas();
    CanvasSmartSplitterDebugger* findDebugCanvas() const;

    void chooseHandle();
    void setHandle(bool dimple, bool large, int count);
    void drawHandle();
    void drawGhost();
    void drawBar(int x, int y);
    void drawDimple(int x, int y);
    void drawLargeDimple(int x, int y);
    void drawSmallDimple(int x, int y);
    static DimplePixels parseDimplePixels(const std::string& text, double factor);
    static Color grey(double value);
    bool looksEnabled() const;

    bool isVertical = false;
    bool conceal = false;
    bool Debug = false;
    bool initializedSmartSplitter = false;
    bool initializingSmartSplitter = false;

    // As for the min end.
    bool maxLimitPropSet = false;
    bool maxLimitOffsetPropSet = false;

    bool atMinLimit = false;
    bool atMaxLimit = false;
    // The range that the proportion refers to.
    int proportionMin = 0;
    int proportionMax = 0;

    std::vector<Attached> attached;
    RectControl* maxAttachedControl = nullptr;
    RectControl* minAttachedControl = nullptr;
    CanvasSmartSplitterDebugger* debugCanvas = nullptr;

    // What set-up passes to setHandleType.
    int HandleType = 0;
    bool backgroundDark = false;
    Color colorLight;
    Color colorMedium;
    Color colorDark;
    Color colorLightDisabled;
    Color colorMediumDisabled;
    Color colorDarkDisabled;
    DimplePixels dimplePixelValue = {};
    DimplePixels dimplePixelValueDisabled = {};
};

}  // namespace bracken
