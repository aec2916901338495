#pragma once

#include <QProgressBar>

#include "framework/controls/plain_controls.h"
#include "platform/qt/control_view.h"

namespace bracken {

// A bar.
class ProgressBarView : public QProgressBar, public ControlView {
  public:
    ProgressBarView(ProgressBar& model, QWidget* parent);

  protected:
    void sync() override;

  private:
    ProgressBar& model_;
};

}  // namespace bracken
