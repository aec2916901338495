#include "platform/qt/edit_field_view.h"

#include <QSignalBlocker>
#include <limits>

#include "framework/windows/event.h"
#include "platform/qt/qt_text.h"

namespace bracken {

EditFieldView::EditFieldView(EditField& model, QWidget* parent)
    : QLineEdit(parent), ControlView(model, *this), model_(model) {
    setMaxLength(std::numeric_limits<int>::max());
    if (model.Password) setEchoMode(QLineEdit::Password);
    connect(this, &QLineEdit::textChanged, this, &EditFieldView::userEdited);
}

void EditFieldView::sync() {
    if (model_.Text.get() == shown_) return;
    shown_ = model_.Text;
    QSignalBlocker quiet(this);
    setText(toQString(shown_));
}

void EditFieldView::userEdited() {
    handleEvent([this] {
        shown_ = bytesOf(text());
        model_.userEdited(shown_);
    });
}

}  // namespace bracken
