#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "framework/controls/canvas.h"
#include "framework/values/variant.h"
#include "splitter/axis.h"
#include "splitter/dimple.h"

namespace bracken {

class CanvasSmartSplitterDebugger;

// A divider that the user drags. When it moves, or when its window changes size and `behave` is
// called, the controls attached to it move, resize, centre, hide or show, so that they share the
// window. Left alone, it attaches the controls that touch it and works out its limits from them.
//
// An upright one moves left and right, a lying one up and down. `Position` below is its Left or its
// Top, its extent the Width or Height, always along the axis that it moves on; the min end is that
// of the small coordinates. Attached controls and the overlay belong to the same window.
//
// Operations may be called before the window opens: the first one sets the splitter up. Main
// thread, holding the baton.
//
// Where the operations stand:
//   smart_splitter.cpp  set-up, behave, setConceal, events of mouse and window
//   attaching.cpp       attach and unAttach, the controls that bound the ends
//   suggestions.cpp     what a control's class, locks and scroll bars make of it
//   roles.cpp           the setAttachedControl... operations, warnings
//   limits.cpp          limits, offsets, moves, proportion
//   adjusting.cpp       what a move does to the attached controls
//   painting.cpp        handle types, drawing; dimple.cpp has the pixels of a large dimple
//   debugging.cpp       setDebug, the overlay's refresh
class SmartSplitter : public Canvas {
  public:
    using Canvas::Canvas;

    // Set by the window's author before opening. 0 in a limit or offset: the splitter finds it.

    // Outermost positions, and the widths of the zones inside them in which it can't rest.
    int MaxLimit = 0;
    int MinLimit = 0;
    int MaxLimitOffset = 0;
    int MinLimitOffset = 0;
    // Stops at the zone instead of snapping to the limit.
    bool StopAtMinOffset = false;
    bool StopAtMaxOffset = false;
    // Keeps its share of the range when the window changes size.
    bool StayProportional = false;
    // The attached controls follow at mouse up only.
    bool DisableLiveDrag = false;

    // Set in the Open event or later: set-up overwrites them.

    bool doNotAttachEmbeddedControls = false;
    // Shows advice to the window's author in message boxes.
    bool showWarningsDialogs = false;
    bool handleLarge = false;
    bool handleDimple = false;
    int handleCount = 0;

    // Raised to the window, each if it is set.

    // During set-up; controls that are attached here keep it from attaching by itself.
    std::function<void()> Open;
    // By how far it has moved, 0 after a `behave` that left it in place.
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

    // Attaches every control of the window that touches it.
    virtual void attachNearbyControls();
    // Attaches one control, its role found by rule; nil, the splitter itself, a line, and what is
    // attached already are left alone.
    virtual void attach(RectControl* control);
    // A limit that is set by hand no longer follows a control.
    virtual void setMaxLimit(int value);
    virtual void setMinLimit(int value);
    virtual void setMaxLimitOffset(int value);
    virtual void setMinLimitOffset(int value);
    // Back to the opening place, in the window's present size.
    virtual void resetPosition();
    virtual void setPosition(int value);
    // The one mover: `distance` is cut by limits and zones. `behaving` when a change of the window,
    // not the user, is the cause.
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
    // Lets go of a control and of what lies in it; size, visibility and limits stay.
    virtual void unAttach(RectControl* control, bool silently);
    // 0.0 is the min end of the range, 1.0 the max end.
    virtual void setProportion(const Variant& value);
    virtual void setAttachedControlShouldCenter(RectControl* control, bool value);
    virtual void unAttachAllControls();
    // The zone ends where the control does.
    virtual void setMinLimitOffset(RectControl* control);
    virtual double proportion();
    virtual int position();
    // Draws what it does on the window's overlay, see CanvasSmartSplitterDebugger.
    virtual void setDebug(bool value);
    // Neither drawn nor draggable.
    virtual void setConceal(bool value);
    virtual void setMaxLimitOffset(RectControl* control);
    // 0 by size and window, 1 small bars, 2 large bars, 3 small dimples, 4 a large dimple, else
    // none.
    virtual void setHandleType(int value);
    virtual void setAttachedControlNormallyVisible(RectControl* control, bool value);

  protected:
    // Turns the orientation that its shape gives; set before opening.
    bool SwapOrientation = false;

    // When it was set up, and when limits were last worked out.
    int positionAtOpen = 0;
    int windowSizeAtOpen = 0;
    int windowSizeLast = 0;
    double proportionValue = 0;
    double proportionAtOpen = 0;
    // Whether the author gave a value; what was found is then not written over it.
    bool minLimitPropSet = false;
    bool minLimitOffsetPropSet = false;

    // A drag is under way: where the mouse went down, in the splitter's own coordinates, and where
    // the splitter was then.
    bool mouseDownTriggered = false;
    int mouseDownX = 0;
    int mouseDownY = 0;
    int positionAtMouseDown = 0;

  private:
    // The tests' view of the private state.
    friend class SmartSplitterProbe;

    struct Attached {
        RectControl* control = nullptr;
        // Lies on the min side.
        bool behind = false;
        // Extent below which it is hidden.
        int minSizeVisible = 0;
        bool normallyVisible = false;
        bool shouldCenter = false;
        bool shouldMove = false;
        bool shouldResize = false;
        // Extent when it was attached; nothing is decided by it.
        int size = 0;
    };
    // Place and extent along the axis.
    struct Span {
        int64_t position;
        int64_t extent;
    };
    // What a move asks of one end of the range.
    struct End {
        bool isMin;
        // ListingStore from move to move: whether the last one snapped to the limit.
        bool& snapped;
        // Whether it stops at the zone instead.
        bool stops;
    };

    // Stands in MinLimit until the limit has been found; taken for 0 from then on.
    static constexpr int limitNotDerived = 9999;

    // The control, or NilObjectException.
    static RectControl& present(RectControl* control);

    void initializeSmartSplitter();
    void takeDesignValues();
    void takeColors();
    void assignCursor();
    bool usesDarkFrame() const;
    const Axis& axis() const { return isVertical ? Axis::across() : Axis::down(); }
    // Across its own axis, the one that it is long on.
    const Axis& crossAxis() const { return isVertical ? Axis::down() : Axis::across(); }
    int64_t here() const { return axis().position(*this); }

    bool touches(const RectControl& control) const;
    bool sharesPageWith(const RectControl& control) const;
    bool isAttached(const RectControl* control) const { return indexOf(control) >= 0; }
    // -1 if it is not attached, as null is.
    int indexOf(const RectControl* control) const;
    // What a control is taken for, by its class, locks and scroll bars: the rules that spare a
    // window's author from saying anything. Sizes are pixels along the axis.
    int suggestMinSizeControlShouldBeVisible(const RectControl& control) const;
    bool suggestWhetherControlShouldResize(const RectControl& control) const;
    // The room that the control asks to be kept for it.
    int suggestOffsetSizeForControl(const RectControl& control) const;
    // Whether it is of a kind that others lie in.
    static bool controlCommonlyHasEmbeddedControls(const RectControl& control);
    void chooseRole(Attached& entry, bool parentAttached);
    void raiseOffset(const Attached& entry);
    void attachContents(RectControl& container);
    // Changes that control's entry, or warns that there is none in the operation's name.
    bool changeAttached(RectControl* control, const char* operation,
                        const std::function<void(Attached&)>& change);
    void warningForControlNotAttached(const RectControl* control, const std::string& methodName);
    bool warningIfNonAttached(const std::string& methodName);

    void assignLimits();
    int64_t snappedOrStopped(int64_t distance, const End& end, bool behaving);
    void followMove(int distance, bool behaving);
    void rememberProportion(int64_t reached);
    double share(int64_t reached) const;

    void adjustAttachedControls(int distance, bool behaving);
    Span newSpan(const Attached& entry, int distance) const;
    void apply(const Attached& entry, const Span& span);
    bool shouldShow(const Attached& entry, int64_t extent) const;
    bool isOverlapped(const Attached& entry) const;
    void tellNestedSplitters();

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
    bool looksEnabled() const;

    bool isVertical = false;
    bool conceal = false;
    bool Debug = false;
    bool initializedSmartSplitter = false;
    bool initializingSmartSplitter = false;

    // As at the min end.
    bool maxLimitPropSet = false;
    bool maxLimitOffsetPropSet = false;

    bool atMinLimit = false;
    bool atMaxLimit = false;
    // The range that the proportion is a share of.
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
