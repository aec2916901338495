#include <algorithm>

#include "framework/dialogs/dialogs.h"
#include "framework/text/text.h"
#include "splitter/smart_splitter.h"

namespace bracken {

namespace {

int asInt(int64_t value) {
    return static_cast<int>(value);
}

// The whole numbers 0 and 1 are the ends of the range; of others only a double will do.
bool isProportion(const Variant& value) {
    constexpr int doubleType = 5;
    int whole = value.IntegerValue();
    return VarType(value) == doubleType || whole == 0 || whole == 1;
}

}  // namespace

// The min end leaves out the bounding control's extent, the max end the splitter's: a splitter at
// the end stands just outside the control.
void SmartSplitter::assignLimits() {
    if (MinLimit == limitNotDerived) MinLimit = 0;
    if (minAttachedControl != nullptr) {
        proportionMin = asInt(axis().position(*minAttachedControl) - axis().extent(*this));
        if (!minLimitPropSet) MinLimit = proportionMin;
    }
    int64_t windowSize = axis().size(window());
    // With no control at the max end the limit follows the window, by the change since last time.
    proportionMax = asInt(maxAttachedControl != nullptr ? axis().farEdge(*maxAttachedControl)
                                                        : MaxLimit + windowSize - windowSizeLast);
    if (!maxLimitPropSet) MaxLimit = proportionMax;
    windowSizeLast = asInt(windowSize);
}

void SmartSplitter::setMaxLimit(int value) {
    initializeSmartSplitter();
    MaxLimit = value;
    maxAttachedControl = nullptr;
    refreshDebugCanvas(true);
}

void SmartSplitter::setMinLimit(int value) {
    initializeSmartSplitter();
    MinLimit = value;
    minAttachedControl = nullptr;
    refreshDebugCanvas(true);
}

void SmartSplitter::setMaxLimitOffset(int value) {
    initializeSmartSplitter();
    MaxLimitOffset = std::max(value, 0);
    refreshDebugCanvas(true);
}

void SmartSplitter::setMinLimitOffset(int value) {
    initializeSmartSplitter();
    MinLimitOffset = std::max(value, 0);
    refreshDebugCanvas(true);
}

void SmartSplitter::setMaxLimitOffset(RectControl* control) {
    initializeSmartSplitter();
    assignLimits();
    MaxLimitOffset = asInt(MaxLimit - axis().position(present(control)) + axis().extent(*this));
    refreshDebugCanvas(true);
}

void SmartSplitter::setMinLimitOffset(RectControl* control) {
    initializeSmartSplitter();
    assignLimits();
    MinLimitOffset = asInt(axis().farEdge(present(control)) - MinLimit);
    refreshDebugCanvas(true);
}

// The first half of a zone pulls to the limit, the second pushes out of the zone. The half is a
// real one, so that with an odd offset the border lies between two pixels.
int64_t SmartSplitter::snappedOrStopped(int64_t distance, const End& end, bool behaving) {
    // Seen from the max end all signs are turned.
    int64_t sign = end.isMin ? 1 : -1;
    int64_t limit = end.isMin ? MinLimit : MaxLimit;
    int64_t offset = end.isMin ? MinLimitOffset : MaxLimitOffset;
    auto target = static_cast<double>(sign * (here() + distance));
    bool inFirstHalf = target < static_cast<double>(sign * limit) + static_cast<double>(offset) / 2;
    bool snap = inFirstHalf || (end.snapped && behaving);
    end.snapped = snap && !end.stops;
    if (end.snapped) return limit - here();
    int64_t stop = limit + sign * offset;
    return sign * (here() + distance) < sign * stop ? stop - here() : distance;
}

void SmartSplitter::moveDistance(int distance, bool behaving) {
    initializeSmartSplitter();
    int64_t from = here();
    if (MinLimit == limitNotDerived) MinLimit = 0;
    int64_t way = distance;
    if (behaving && StayProportional) {
        double range = static_cast<double>(int64_t{proportionMax} - proportionMin);
        way = toInt32(proportionMin + range * proportionValue - static_cast<double>(from));
    }
    way = snappedOrStopped(way, {true, atMinLimit, StopAtMinOffset}, behaving);
    way = snappedOrStopped(way, {false, atMaxLimit, StopAtMaxOffset}, behaving);
    // The max end comes last: it wins where the limits cross.
    way = std::max(way, MinLimit - from);
    way = std::min(way, MaxLimit - from);
    rememberProportion(from + way);
    if (way == 0 && !behaving) return;
    axis().setPosition(*this, from + way);
    followMove(asInt(way), behaving);
}

void SmartSplitter::followMove(int distance, bool behaving) {
    if (mouseDownTriggered && Debug) clearDebugCanvas();
    if (DisableLiveDrag) {
        if (behaving) adjustAttachedControls(distance, behaving);
        return;
    }
    adjustAttachedControls(distance, behaving);
    if (Moved) Moved(distance);
}

// Not finite when the range is empty.
double SmartSplitter::share(int64_t reached) const {
    return static_cast<double>(reached - proportionMin) /
           static_cast<double>(int64_t{proportionMax} - proportionMin);
}

void SmartSplitter::rememberProportion(int64_t reached) {
    // In this order of arguments, not a number gives 0.
    proportionValue = std::max(0.0, share(reached));
    proportionValue = std::min(1.0, proportionValue);
}

void SmartSplitter::setPosition(int value) {
    initializeSmartSplitter();
    if (warningIfNonAttached("setPosition")) return;
    int before = position();
    moveDistance(asInt(int64_t{value} - position()), false);
    if (DisableLiveDrag) adjustAttachedControls(position() - before, true);
    refreshDebugCanvas(true);
}

void SmartSplitter::resetPosition() {
    initializeSmartSplitter();
    if (StayProportional) {
        setProportion(proportionAtOpen);
        return;
    }
    int64_t grown = axis().farLock(*this) ? axis().size(window()) - windowSizeAtOpen : 0;
    setPosition(asInt(positionAtOpen + grown));
}

void SmartSplitter::setProportion(const Variant& value) {
    initializeSmartSplitter();
    if (warningIfNonAttached("setProportion")) return;
    if (showWarningsDialogs && !isProportion(value)) {
        MsgBox("The value type passed to the SmartSplitter '" + name() +
               "' method 'setProportion' is not a single or double." + EndOfLine + EndOfLine +
               "Proportion must be referenced as a single or double - double is preferred as that "
               "is how it is referenced internally.");
        return;
    }
    proportionValue = value.DoubleValue();
    atMinLimit = false;
    atMaxLimit = false;
    bool stayed = StayProportional;
    StayProportional = true;
    behave();
    StayProportional = stayed;
    refreshDebugCanvas(true);
}

double SmartSplitter::proportion() {
    initializeSmartSplitter();
    return proportionValue;
}

int SmartSplitter::position() {
    initializeSmartSplitter();
    return asInt(here());
}

}  // namespace bracken
