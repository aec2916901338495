#include "framework/text/text.h"
#include "splitter/canvas_smart_splitter_debugger.h"
#include "splitter/smart_splitter.h"

namespace bracken {

namespace {

bool liesWithin(const RectControl& inner, const RectControl& outer, const Axis& axis) {
    return axis.position(inner) >= axis.position(outer) &&
           axis.farEdge(inner) <= axis.farEdge(outer);
}

double half(int64_t length) {
    return static_cast<double>(length) / 2;
}

}  // namespace

// Applies a move of the splitter, which is at its new position already, to every attached control.
void SmartSplitter::adjustAttachedControls(int distance, bool behaving) {
    size_t count = attached.size();
    for (size_t i = 0; i < count; ++i) {
        const Attached& entry = attached[i];
        if (entry.control == nullptr) continue;
        RectControl& control = *entry.control;
        Span span = newSpan(entry, distance);
        apply(entry, span);
        bool show = shouldShow(entry, span.extent);
        if (show && !control.Visible && entry.normallyVisible) control.Visible = true;
        if (!show && control.Visible) control.Visible = false;
        if (debugCanvas != nullptr) debugCanvas->markControl(control);
    }
    if (!behaving) adjustNestedSplitters();
}

SmartSplitter::Span SmartSplitter::newSpan(const Attached& entry, int distance) const {
    int64_t position = axis().position(*entry.control);
    int64_t extent = axis().extent(*entry.control);
    if (entry.shouldCenter) {
        double start = entry.isBefore
                           ? MinLimit + half(axis().extent(*this)) +
                                 half(currentPosition() - MinLimit) - half(extent)
                           : static_cast<double>(axis().farEdge(*this)) +
                                 half(MaxLimit - currentPosition() - axis().extent(*this)) -
                                 half(extent);
        return {toInt32(start), extent};
    }
    if (entry.shouldMove) position += distance;
    if (entry.shouldResize) extent += entry.isBefore ? distance : -int64_t{distance};
    return {position, extent};
}

// A control is hidden before its extent drops below 1. Values that don't change are not set.
void SmartSplitter::apply(const Attached& entry, const Span& span) {
    RectControl& control = *entry.control;
    if (span.extent < 1 && control.Visible) control.Visible = false;
    if (axis().extent(control) != span.extent) axis().setExtent(control, span.extent);
    if (axis().position(control) != span.position) axis().setPosition(control, span.position);
}

bool SmartSplitter::shouldShow(const Attached& entry, int64_t extent) const {
    if (extent < entry.minSizeVisible || extent < 1) return false;
    if (!entry.shouldMove && !entry.shouldResize && isOverlapped(entry)) return false;
    const RectControl& control = *entry.control;
    if (control.Parent == nullptr || dynamic_cast<const SmartSplitter*>(&control) != nullptr)
        return true;
    const RectControl& parent = *control.Parent;
    return liesWithin(control, parent, Axis::x()) && liesWithin(control, parent, Axis::y());
}

// Whether the splitter overlaps a control that doesn't move with it.
bool SmartSplitter::isOverlapped(const Attached& entry) const {
    // A horizontal splitter may overlap by one pixel more than a vertical one.
    int margin = isVertical ? 1 : 2;
    const RectControl& control = *entry.control;
    return entry.isBefore ? currentPosition() + margin < axis().farEdge(control)
                          : axis().position(control) < axis().farEdge(*this) - margin;
}

// Lets attached splitters of the same orientation update their own limits and controls. One that
// behaves doesn't call this, so only one level is reached and cycles end.
void SmartSplitter::adjustNestedSplitters() {
    for (size_t i = 0; i < attached.size(); ++i) {
        auto* splitter = dynamic_cast<SmartSplitter*>(attached[i].control);
        if (splitter != nullptr && splitter->isVertical == isVertical) splitter->behave();
    }
}

}  // namespace bracken
