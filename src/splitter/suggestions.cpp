#include <optional>

#include "framework/controls/buttons.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/listbox.h"
#include "framework/controls/panels.h"
#include "framework/controls/plain_controls.h"
#include "framework/controls/popup_menu.h"
#include "splitter/smart_splitter.h"

namespace bracken {

namespace {

template <class... Classes>
bool isOneOf(const RectControl& control) {
    return (... || (dynamic_cast<const Classes*>(&control) != nullptr));
}

// Judged by shape, since the other splitter may not be set up yet.
bool isSplitterOfOrientation(const RectControl& control, bool vertical) {
    return isOneOf<SmartSplitter>(control) && (control.Width < control.Height) == vertical;
}

// The offset of a control that can have scroll bars; nullopt if the other rules decide.
std::optional<int> scrollableOffset(const RectControl& control, bool vertical) {
    if (auto* list = dynamic_cast<const Listbox*>(&control)) {
        if (vertical) return 86;
        if (list->ScrollbarHorizontal) return 66;
    }
    if (auto* field = dynamic_cast<const EditField*>(&control)) {
        if (vertical) return field->ScrollBarVertical ? 80 : 60;
        if (field->MultiLine && field->ScrollBarHorizontal) return 46;
    }
    return std::nullopt;
}

}  // namespace

int SmartSplitter::suggestMinSizeControlShouldBeVisible(const RectControl& control) const {
    if (isOneOf<Listbox>(control)) return 20;
    if (isVertical && isOneOf<CheckBox, RadioButton>(control)) return 18;
    if (isVertical && isOneOf<EditField>(control)) return 20;
    if (isVertical && isOneOf<PopupMenu>(control)) return 18;
    if (isOneOf<GroupBox, PagePanel, TabPanel>(control)) return 28;
    return 2;
}

int SmartSplitter::suggestOffsetSizeForControl(const RectControl& control) const {
    if (isOneOf<TabPanel>(control)) return 140;
    if (isOneOf<GroupBox, PagePanel>(control)) return 100;
    if (auto offset = scrollableOffset(control, isVertical)) return *offset;
    if (isVertical && isOneOf<CheckBox, RadioButton>(control)) return 60;
    if (isVertical && isOneOf<PopupMenu, StaticText>(control)) return 40;
    return 30;
}

bool SmartSplitter::suggestWhetherControlShouldResize(const RectControl& control) const {
    if (isSplitterOfOrientation(control, isVertical)) return false;
    if (axis().lockedAtBothEnds(control)) return true;
    if (isOneOf<Separator, Rectangle, Placard, ImageWell, Canvas, Listbox>(control)) return true;
    auto* field = dynamic_cast<const EditField*>(&control);
    if (field != nullptr && (isVertical || field->MultiLine)) return true;
    auto* label = dynamic_cast<const StaticText*>(&control);
    if (label != nullptr && !isVertical && label->MultiLine) return true;
    if (isVertical && isOneOf<PopupMenu>(control)) return true;
    return isOneOf<GroupBox, PagePanel, TabPanel>(control);
}

bool SmartSplitter::controlCommonlyHasEmbeddedControls(const RectControl& control) {
    return isOneOf<TabPanel, PagePanel, GroupBox, Canvas, Rectangle, EditField, Listbox>(control);
}

}  // namespace bracken
