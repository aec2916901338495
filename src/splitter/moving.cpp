#include <algorithm>

#include "framework/dialogs/dialogs.h"
#include "framework/text/text.h"
#include "splitter/smart_splitter.h"

namespace bracken {

namespace {

// A double, or a value that truncates to 0 or 1, the ends of the range.
bool isProportion(const Variant& value) {
    constexpr int doubleType = 5;
    int whole = value.IntegerValue();
    return VarType(value) == doubleType || whole == 0 || whole == 1;
}

}  // namespace

// In the outer half of a zone the splitter snaps to the limit, in the inner half it stops at the
// zone's inner edge. Halves are exact: with an odd offset the border lies between two pixels.
int64_t SmartSplitter::snappedOrStopped(int64_t distance, const End& end, bool behaving) {
    // At the max end all signs are inverted.
    int64_t sign = end.isMin ? 1 : -1;
    int64_t limit = end.isMin ? MinLimit : MaxLimit;
    int64_t offset = end.isMin ? MinLimitOffset : MaxLimitOffset;
    auto target = static_cast<double>(sign * (currentPosition() + distance));
    bool inOuterHalf = target < static_cast<double>(sign * limit) + static_cast<double>(offset) / 2;
    bool snap = inOuterHalf || (end.snapped && behaving);
    end.snapped = snap && !end.stops;
    if (end.snapped) return limit - currentPosition();
    int64_t stop = limit + sign * offset;
    return sign * (currentPosition() + distance) < sign * stop ? stop - currentPosition()
                                                               : distance;
}

void SmartSplitter::moveDistance(int distance, bool behaving) {
    initializeSmartSplitter();
    int64_t from = currentPosition();
    if (MinLimit == limitNotDerived) MinLimit = 0;
    int64_t move = distance;
    if (behaving && StayProportional) {
        double range = static_cast<double>(int64_t{proportionMax} - proportionMin);
        move = toInt32(proportionMin + range * proportionValue - static_cast<double>(from));
    }
    move = snappedOrStopped(move, {true, atMinLimit, StopAtMinOffset}, behaving);
    move = snappedOrStopped(move, {false, atMaxLimit, StopAtMaxOffset}, behaving);
    // The max limit is applied last, so it wins where the limits cross.
    move = std::max(move, MinLimit - from);
    move = std::min(move, MaxLimit - from);
    updateProportion(from + move);
    if (move == 0 && !behaving) return;
    axis().setPosition(*this, from + move);
    followMove(static_cast<int>(move), behaving);
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

// Not finite if the range is empty.
double SmartSplitter::proportionAt(int64_t position) const {
    return static_cast<double>(position - proportionMin) /
           static_cast<double>(int64_t{proportionMax} - proportionMin);
}

void SmartSplitter::updateProportion(int64_t position) {
    // With the arguments in this order NaN gives 0.
    proportionValue = std::max(0.0, proportionAt(position));
    proportionValue = std::min(1.0, proportionValue);
}

void SmartSplitter::setPosition(int value) {
    initializeSmartSplitter();
    if (warningIfNonAttached("setPosition")) return;
    int before = position();
    moveDistance(static_cast<int>(int64_t{value} - position()), false);
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
    setPosition(static_cast<int>(positionAtOpen + grown));
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
    bool oldStayProportional = StayProportional;
    StayProportional = true;
    behave();
    StayProportional = oldStayProportional;
    refreshDebugCanvas(true);
}

double SmartSplitter::proportion() {
    initializeSmartSplitter();
    return proportionValue;
}

int SmartSplitter::position() {
    initializeSmartSplitter();
    return static_cast<int>(currentPosition());
}

}  // namespace bracken
