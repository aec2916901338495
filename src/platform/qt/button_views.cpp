#include "platform/qt/button_views.h"

#include <QStyleOptionButton>

#include "framework/windows/event.h"
#include "platform/qt/fitted_text.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/tip_text.h"

namespace bracken {

namespace {

// Pixels of a button's width that its caption cannot use.
constexpr int margins = 12;

}  // namespace

PushButtonView::PushButtonView(PushButton& model, QWidget* parent)
    : QPushButton(parent), ControlView(model, *this), model_(model) {
    // With the focus, Return presses it ahead of the default button.
    setAutoDefault(true);
    // A press by the mouse leaves the focus where it is, so that Return goes on to the default
    // button.
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QPushButton::clicked, this,
            [this] { handleAction([this] { model_.userPressed(); }); });
}

void PushButtonView::sync() {
    setText(captionText(model_.Caption.get()));
    setToolTip(tipText(toQString(model_.toolTip.get()), *screen()));
    // Else screen readers would get the tip's markup.
    setAccessibleDescription(toQString(model_.toolTip.get()));
    setDefault(model_.Default);
    setFont(fittedFont(parentWidget()->font(), toQString(model_.Caption.get()), width() - margins));
}

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
