#include "platform/qt/frame_views.h"

#include "framework/windows/event.h"
#include "platform/qt/qt_text.h"

namespace bracken {

GroupBoxView::GroupBoxView(GroupBox& model, QWidget* parent)
    : QGroupBox(parent), ControlView(model, *this), model_(model) {}

void GroupBoxView::sync() {
    setTitle(shownCaption(model_.Caption.get()));
}

RadioButtonView::RadioButtonView(RadioButton& model, QWidget* parent)
    : QRadioButton(parent), ControlView(model, *this), model_(model) {
    setAutoExclusive(false);
    connect(this, &QRadioButton::clicked, this, [this] {
        handleEvent([this] { model_.userChose(); });
        setChecked(model_.Value);
    });
}

void RadioButtonView::sync() {
    setText(shownCaption(model_.Caption.get()));
    setChecked(model_.Value);
}

TabPanelView::TabPanelView(TabPanel& model, QWidget* parent)
    : QTabWidget(parent), ControlView(model, *this), model_(model) {
    for (const std::string& caption : model.Captions)
        addTab(new QWidget(this), shownCaption(caption));
    connect(this, &QTabWidget::currentChanged, this,
            [this](int page) { handleEvent([this, page] { model_.userChose(page); }); });
}

void TabPanelView::sync() {
    QSignalBlocker quiet(this);
    setCurrentIndex(model_.Value);
}

}  // namespace bracken
