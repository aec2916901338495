#pragma once

#include <QLabel>

#include "framework/controls/plain_controls.h"
#include "platform/qt/control_view.h"

namespace bracken {

// A label: wraps anywhere if it has several lines, else shows as much as fits.
class StaticTextView : public QLabel, public ControlView {
  public:
    StaticTextView(StaticText& model, QWidget* parent);

  protected:
    void sync() override;
    void paintEvent(QPaintEvent* event) override;

  private:
    StaticText& model_;
};

}  // namespace bracken
