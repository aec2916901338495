#pragma once

#include <QCheckBox>
#include <QPushButton>

#include "framework/controls/buttons.h"
#include "platform/qt/control_view.h"

namespace bracken {

// A button.
class PushButtonView : public QPushButton, public ControlView {
  public:
    PushButtonView(PushButton& model, QWidget* parent);

  protected:
    void sync() override;

  private:
    PushButton& model_;
};

// A box with a caption.
class CheckBoxView : public QCheckBox, public ControlView {
  public:
    CheckBoxView(CheckBox& model, QWidget* parent);

  protected:
    void sync() override;

  private:
    CheckBox& model_;
};

}  // namespace bracken
