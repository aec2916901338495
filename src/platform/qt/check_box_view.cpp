#include "platform/qt/check_box_view.h"

#include <QStyleOptionButton>

#include "framework/windows/event.h"
#include "platform/qt/fitted_font.h"
#include "platform/qt/qt_text.h"

namespace bracken {

CheckBoxView::CheckBoxView(CheckBox& model, QWidget* parent)
    : QCheckBox(parent), ControlView(model, *this), model_(model) {
    connect(this, &QCheckBox::clicked, this, [this](bool checked) {
        handleEvent([this, checked] { model_.userToggled(checked); });
    });
}

// The box's frame is drawn in a shade of the window's colour, which is darker: on a dark window it
// could not be seen.
void CheckBoxView::initStyleOption(QStyleOptionButton* option) const {
    QCheckBox::initStyleOption(option);
    QColor window = option->palette.color(QPalette::Window);
    QColor text = option->palette.color(QPalette::WindowText);
    if (window.lightness() < text.lightness())
        option->palette.setColor(QPalette::Window, text.darker(130));
}

void CheckBoxView::sync() {
    setText(captionText(model_.Caption.get()));
    setChecked(model_.Value);
    QStyleOptionButton option;
    initStyleOption(&option);
    int room = style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this).width();
    setFont(fittedFont(parentWidget()->font(), toQString(model_.Caption.get()), room));
}

}  // namespace bracken
