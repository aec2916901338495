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

// Applies a move of the splitter, which has been placed, to every attached control.
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
    if (!behaving) tellNestedSplitters();
}

SmartSplitter::Span SmartSplitter::newSpan(const Attached& entry, int distance) const {
    int64_t position = axis().position(*entry.control);
    int64_t extent = axis().extent(*entry.control);
    if (entry.shouldCenter) {
        double start =
            entry.behind
                ? MinLimit + half(axis().extent(*this)) + half(here() - MinLimit) - half(extent)
                : static_cast<double>(axis().farEdge(*this)) +
                      half(MaxLimit - here() - axis().extent(*this)) - half(extent);
        return {toInt32(start), extent};
    }
    if (entry.shouldMove) position += distance;
    if (entry.shouldResize) extent += entry.behind ? distance : -int64_t{distance};
    return {position, extent};
}

// A control is hidden before it gets a size of nothing or less. What already fits is not set.
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
    return liesWithin(control, parent, Axis::across()) && liesWithin(control, parent, Axis::down());
}

// Whether the splitter has run over a control that stays where it is.
bool SmartSplitter::isOverlapped(const Attached& entry) const {
    // A lying splitter may reach one pixel further than an upright one.
    int margin = isVertical ? 1 : 2;
    const RectControl& control = *entry.control;
    return entry.behind ? here() + margin < axis().farEdge(control)
                        : axis().position(control) < axis().farEdge(*this) - margin;
}

// Splitters of the same orientation settle their own limits and controls. They behave, and one that
// behaves tells nobody, so the word goes no further than here.
void SmartSplitter::tellNestedSplitters() {
    for (size_t i = 0; i < attached.size(); ++i) {
        auto* splitter = dynamic_cast<SmartSplitter*>(attached[i].control);
        if (splitter != nullptr && splitter->isVertical == isVertical) splitter->behave();
    }
}

}  // namespace bracken
