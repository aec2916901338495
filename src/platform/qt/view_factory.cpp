#include "platform/qt/view_factory.h"

#include "platform/qt/button_views.h"
#include "platform/qt/canvas_view.h"
#include "platform/qt/edit_field_view.h"
#include "platform/qt/listbox_view.h"
#include "platform/qt/popup_menu_view.h"
#include "platform/qt/progress_views.h"
#include "platform/qt/static_text_view.h"
#include "platform/qt/text_area_view.h"

namespace bracken {

namespace {

using Maker = ControlView* (*)(Control& control, QWidget* parent);

template <class Model, class View>
ControlView* make(Control& control, QWidget* parent) {
    auto* model = dynamic_cast<Model*>(&control);
    return model == nullptr ? nullptr : new View(*model, parent);
}

ControlView* makeTextArea(Control& control, QWidget* parent) {
    auto* field = dynamic_cast<EditField*>(&control);
    return field == nullptr || !field->MultiLine ? nullptr : new TextAreaView(*field, parent);
}

// The first that fits is taken: derived controls stand before their bases.
// clang-format off: it would set a line more in two columns
constexpr Maker makers[] = {
    make<StaticText, StaticTextView>,
    makeTextArea,
    make<EditField, EditFieldView>,
    make<PushButton, PushButtonView>,
    make<CheckBox, CheckBoxView>,
    make<PopupMenu, PopupMenuView>,
    make<Listbox, ListboxView>,
    make<ProgressBar, ProgressBarView>,
    make<ProgressWheel, ProgressWheelView>,
    make<Canvas, CanvasView>,
};
// clang-format on

}  // namespace

ControlView* makeView(Control& control, QWidget* parent) {
    for (Maker maker : makers)
        if (ControlView* view = maker(control, parent)) return view;
    return nullptr;
}

}  // namespace bracken
