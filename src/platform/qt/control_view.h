#pragma once

#include <QRect>
#include <QWidget>

#include "framework/controls/control.h"

namespace bracken {

// What each control's widget has in common: place, visibility and enabling as the model says. Each
// class of views derives from its widget and from this; the widget's parent owns it. Main thread,
// holding the baton.
class ControlView {
  public:
    ControlView(RectControl& control, QWidget& widget);
    virtual ~ControlView() = default;
    ControlView(const ControlView&) = delete;
    ControlView& operator=(const ControlView&) = delete;

    RectControl& control() const { return control_; }
    QWidget& widget() const { return widget_; }

    // Takes the model over into the widget. A control that lies wholly outside `content` is hidden,
    // so that the focus cannot get there.
    void showModel(const QRect& content);

  protected:
    // What the kind of control adds to it. Must not call back into the model's user... calls.
    virtual void sync() = 0;

  private:
    RectControl& control_;
    QWidget& widget_;
};

}  // namespace bracken
