#include "platform/qt/popup_menu_view.h"

#include <QLabel>
#include <QSignalBlocker>
#include <QStringList>

#include "framework/windows/event.h"
#include "platform/qt/qt_text.h"

namespace bracken {

PopupMenuView::PopupMenuView(PopupMenu& model, QWidget* parent)
    : QComboBox(parent), ControlView(model, *this), model_(model) {
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(this, &QComboBox::activated, this,
            [this](int row) { handleEvent([this, row] { model_.userChose(row); }); });
    if (model.accessibleName.empty()) return;
    // To screen readers the toolkit names it by the row chosen, and only a label says what for.
    auto* label = new QLabel(toQString(model.accessibleName), parent);
    label->hide();
    label->setBuddy(this);
}

void PopupMenuView::sync() {
    QSignalBlocker quiet(this);
    syncRows();
    int row = model_.ListIndex;
    setCurrentIndex(row >= 0 && row < count() ? row : -1);
}

void PopupMenuView::syncRows() {
    QStringList rows;
    for (int row = 0; row < model_.ListCount(); row++)
        rows << withoutLineControls(toQString(model_.List(row)));
    bool same = rows.size() == count();
    for (int row = 0; same && row < count(); row++) same = itemText(row) == rows[row];
    if (same) return;
    clear();
    addItems(rows);
}

}  // namespace bracken
