#pragma once

#include <QBasicTimer>
#include <QProgressBar>
#include <QWidget>

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

// A wheel of spokes that turns while it is visible.
class ProgressWheelView : public QWidget, public ControlView {
  public:
    ProgressWheelView(ProgressWheel& model, QWidget* parent);

  protected:
    void sync() override {}
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QBasicTimer turning_;
    // The one that is darkest now, counted from 0.
    int spoke_ = 0;
};

}  // namespace bracken
