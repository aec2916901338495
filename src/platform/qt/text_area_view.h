#pragma once

#include <QPlainTextEdit>

#include "framework/controls/edit_field.h"
#include "platform/qt/control_view.h"
#include "platform/qt/display_text.h"

namespace bracken {

// A field of several lines, with styles. What the user edits stays here until the program assigns
// the text anew.
class TextAreaView : public QPlainTextEdit, public ControlView {
  public:
    TextAreaView(EditField& model, QWidget* parent);

  protected:
    void sync() override;

  private:
    void showText();
    void showStyles(DisplayText& display);
    void showSelection(DisplayText& display);

    EditField& model_;
    uint64_t shownText_ = 0;
    uint64_t shownStyles_ = 0;
};

}  // namespace bracken
