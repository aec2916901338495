#include "splitter/suggestions.h"

#include "framework/controls/check_box.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/group_box.h"
#include "framework/controls/image_well.h"
#include "framework/controls/listbox.h"
#include "framework/controls/page_panel.h"
#include "framework/controls/placard.h"
#include "framework/controls/popup_menu.h"
#include "framework/controls/radio_button.h"
#include "framework/controls/rectangle.h"
#include "framework/controls/separator.h"
#include "framework/controls/static_text.h"
#include "framework/controls/tab_panel.h"
#include "splitter/axis.h"
#include "splitter/smart_splitter.h"

namespace bracken::suggest {

namespace {

template <class... Kinds>
bool isOneOf(const RectControl& control) {
    return (... || (dynamic_cast<const Kinds*>(&control) != nullptr));
}

// The orientation that an unopened splitter would take by its shape.
bool isSplitterAlong(const RectControl& control, bool vertical) {
    return isOneOf<SmartSplitter>(control) && (control.Width < control.Height) == vertical;
}

bool fieldOffset(const EditField& field, bool vertical, int& offset) {
    if (vertical)
        offset = field.ScrollBarVertical ? 80 : 60;
    else if (field.MultiLine && field.ScrollBarHorizontal)
        offset = 46;
    else
        return false;
    return true;
}

bool listOffset(const Listbox& list, bool vertical, int& offset) {
    if (!vertical && !list.ScrollbarHorizontal) return false;
    offset = vertical ? 86 : 66;
    return true;
}

}  // namespace

int minSizeControlShouldBeVisible(const RectControl& control, bool vertical) {
    if (isOneOf<Listbox>(control)) return 20;
    if (vertical && isOneOf<CheckBox, RadioButton>(control)) return 18;
    if (vertical && isOneOf<EditField>(control)) return 20;
    if (vertical && isOneOf<PopupMenu>(control)) return 18;
    if (isOneOf<GroupBox, PagePanel, TabPanel>(control)) return 28;
    return 2;
}

int offsetSizeForControl(const RectControl& control, bool vertical) {
    int offset = 30;
    if (isOneOf<TabPanel>(control)) return 140;
    if (isOneOf<GroupBox, PagePanel>(control)) return 100;
    auto* list = dynamic_cast<const Listbox*>(&control);
    if (list != nullptr && listOffset(*list, vertical, offset)) return offset;
    auto* field = dynamic_cast<const EditField*>(&control);
    if (field != nullptr && fieldOffset(*field, vertical, offset)) return offset;
    if (vertical && isOneOf<CheckBox, RadioButton>(control)) return 60;
    if (vertical && isOneOf<PopupMenu, StaticText>(control)) return 40;
    return offset;
}

bool whetherControlShouldResize(const RectControl& control, bool vertical) {
    const Axis& axis = vertical ? Axis::across() : Axis::down();
    if (isSplitterAlong(control, vertical)) return false;
    if (axis.lockedAtBothEnds(control)) return true;
    if (isOneOf<Separator, Rectangle, Placard, ImageWell, Canvas, Listbox>(control)) return true;
    auto* field = dynamic_cast<const EditField*>(&control);
    if (field != nullptr && (vertical || field->MultiLine)) return true;
    auto* label = dynamic_cast<const StaticText*>(&control);
    if (label != nullptr && !vertical && label->MultiLine) return true;
    if (vertical && isOneOf<PopupMenu>(control)) return true;
    return isOneOf<GroupBox, PagePanel, TabPanel>(control);
}

bool controlCommonlyHasEmbeddedControls(const RectControl& control) {
    return isOneOf<TabPanel, PagePanel, GroupBox, Canvas, Rectangle, EditField, Listbox>(control);
}

}  // namespace bracken::suggest
