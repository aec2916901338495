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

void CheckBoxView::sync() {
    setText(captionText(model_.Caption.get()));
    setChecked(model_.Value);
    QStyleOptionButton option;
    initStyleOption(&option);
    int room = style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this).width();
    setFont(fittedFont(parentWidget()->font(), toQString(model_.Caption.get()), room));
}

}  // namespace bracken
