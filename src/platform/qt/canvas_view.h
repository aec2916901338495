#pragma once

#include <QWidget>

#include "framework/controls/canvas.h"
#include "platform/qt/control_view.h"

namespace bracken {

// Shows a canvas's pixels as they are, and hands it the mouse. One with a track takes the focus by
// the Tab key: arrow keys move it.
class CanvasView : public QWidget, public ControlView {
  public:
    CanvasView(Canvas& model, QWidget* parent);

    Canvas& canvas() const { return model_; }

  protected:
    void sync() override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    // In the model's coordinates, which may be ahead of the widget's by a frame.
    QPoint place(const QMouseEvent& event) const;

    Canvas& model_;
};

}  // namespace bracken
