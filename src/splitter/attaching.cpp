#include <algorithm>
#include <cstdlib>

#include "framework/controls/panels.h"
#include "framework/controls/plain_controls.h"
#include "framework/dialogs/dialogs.h"
#include "framework/exception.h"
#include "framework/ref.h"
#include "splitter/smart_splitter.h"

namespace bracken {

namespace {

// Distances in pixels below this count as touching.
constexpr int64_t tolerance = 5;

bool isNear(int64_t distance) {
    return std::abs(distance) < tolerance;
}

RectControl& asRectControl(Control& control) {
    auto* rect = dynamic_cast<RectControl*>(&control);
    if (rect == nullptr) throw IllegalCastException(control.name() + " has no place on its window");
    return *rect;
}

}  // namespace

int SmartSplitter::indexOf(const RectControl* control) const {
    auto at = std::find_if(attached.begin(), attached.end(),
                           [&](const Attached& entry) { return entry.control == control; });
    return at == attached.end() ? -1 : static_cast<int>(at - attached.begin());
}

void SmartSplitter::attachNearbyControls() {
    initializeSmartSplitter();
    const auto& controls = window().controls();
    for (size_t i = 0; i < controls.size(); ++i) {
        auto* control = dynamic_cast<RectControl*>(controls[i]);
        if (control == nullptr || control->Parent != Parent || !sharesPageWith(*control)) continue;
        if (touches(*control)) attach(control);
    }
}

bool SmartSplitter::sharesPageWith(const RectControl& control) const {
    RectControl* parent = Parent;
    bool hasPages =
        dynamic_cast<TabPanel*>(parent) != nullptr || dynamic_cast<PagePanel*>(parent) != nullptr;
    return !hasPages || TabPanelIndex == control.TabPanelIndex;
}

// Whether an edge of the control touches one of the splitter along its axis, and the two overlap
// across it.
bool SmartSplitter::touches(const RectControl& control) const {
    const Axis& cross = crossAxis();
    int64_t start = cross.position(*this);
    int64_t end = cross.farEdge(*this);
    int64_t controlStart = cross.position(control);
    int64_t controlEnd = cross.farEdge(control);
    bool overlaps = (start - tolerance < controlStart && end + tolerance > controlStart) ||
                    (start - tolerance < controlEnd && end + tolerance > controlEnd) ||
                    (controlStart - tolerance < start && controlEnd + tolerance > end);
    return overlaps && (isNear(currentPosition() - axis().farEdge(control)) ||
                        isNear(axis().farEdge(*this) - axis().position(control)));
}

void SmartSplitter::attach(RectControl* control) {
    initializeSmartSplitter();
    if (control == nullptr || control == this || dynamic_cast<Line*>(control) != nullptr) return;
    if (isAttached(control)) {
        if (showWarningsDialogs)
            MsgBox("The control '" + control->name() + "' is already attached to smartSplitter '" +
                   name() + "'.   This attach request will be ignored.");
        return;
    }
    Attached entry;
    entry.control = control;
    entry.normallyVisible = control->Visible;
    entry.minSizeVisible = suggestMinSizeControlShouldBeVisible(*control);
    entry.size = static_cast<int>(axis().extent(*control));
    entry.isBefore = axis().position(*control) < currentPosition();
    chooseRole(entry, isAttached(control->Parent));
    attached.push_back(entry);
    raiseOffset(entry);
    if (!doNotAttachEmbeddedControls && controlCommonlyHasEmbeddedControls(*control))
        attachContents(*control);
}

// On the min side the near edge stays and the far edge follows the splitter; on the max side the
// whole control moves. A control inside an attached container moves with that, and resizes only on
// the min side and only if it touches the container's far edge.
void SmartSplitter::chooseRole(Attached& entry, bool parentAttached) {
    RectControl& control = *entry.control;
    bool suggested = suggestWhetherControlShouldResize(control);
    if (entry.isBefore) {
        entry.shouldResize =
            suggested &&
            (!parentAttached || isNear(axis().farEdge(*control.Parent) - axis().farEdge(control)));
        setMinAttachedControl(&control, true);
    } else {
        entry.shouldResize = suggested && !parentAttached;
        entry.shouldMove = !parentAttached;
        setMaxAttachedControl(&control, true);
    }
}

void SmartSplitter::raiseOffset(const Attached& entry) {
    bool fixed = entry.isBefore ? minLimitOffsetPropSet : maxLimitOffsetPropSet;
    if (fixed) return;
    int& offset = entry.isBefore ? MinLimitOffset : MaxLimitOffset;
    offset = std::max(offset, suggestOffsetSizeForControl(*entry.control));
}

void SmartSplitter::attachContents(RectControl& container) {
    const auto& controls = window().controls();
    for (size_t i = 0; i < controls.size(); ++i) {
        auto* control = dynamic_cast<RectControl*>(controls[i]);
        if (control != nullptr && control->Parent == &container) attach(control);
    }
}

// The far edge decides here, but the near edge at the min end.
void SmartSplitter::setMaxAttachedControl(RectControl* control, bool onlyIfFurther) {
    initializeSmartSplitter();
    if (!onlyIfFurther || maxAttachedControl == nullptr) maxAttachedControl = control;
    if (onlyIfFurther &&
        axis().farEdge(checked(maxAttachedControl)) < axis().farEdge(checked(control)))
        maxAttachedControl = control;
    refreshDebugCanvas(true);
}

void SmartSplitter::setMinAttachedControl(RectControl* control, bool onlyIfFurther) {
    initializeSmartSplitter();
    if (!onlyIfFurther || minAttachedControl == nullptr) minAttachedControl = control;
    if (onlyIfFurther &&
        axis().position(checked(control)) < axis().position(checked(minAttachedControl)))
        minAttachedControl = control;
    refreshDebugCanvas(true);
}

void SmartSplitter::unAttach(RectControl* control, bool silently) {
    int index = indexOf(control);
    if (index < 0) {
        if (!silently) warningForControlNotAttached(control, "unAttach");
        return;
    }
    attached.erase(attached.begin() + index);
    if (!controlCommonlyHasEmbeddedControls(*control)) return;
    const auto& controls = window().controls();
    for (size_t i = 0; i < controls.size(); ++i) {
        RectControl& inner = asRectControl(*controls[i]);
        if (inner.Parent == control) unAttach(&inner, true);
    }
}

void SmartSplitter::unAttachAllControls() {
    attached.clear();
    minAttachedControl = nullptr;
    maxAttachedControl = nullptr;
}

}  // namespace bracken
