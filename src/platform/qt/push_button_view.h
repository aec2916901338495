#pragma once

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

}  // namespace bracken
