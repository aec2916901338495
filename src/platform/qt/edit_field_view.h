#pragma once

#include <QLineEdit>
#include <string>

#include "framework/controls/edit_field.h"
#include "platform/qt/control_view.h"

namespace bracken {

// A field for a line of text.
class EditFieldView : public QLineEdit, public ControlView {
  public:
    EditFieldView(EditField& model, QWidget* parent);

  protected:
    void sync() override;

  private:
    void userEdited();

    EditField& model_;
    // The model's text that the field shows.
    std::string shown_;
};

}  // namespace bracken
