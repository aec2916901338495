#pragma once

#include <QFrame>
#include <QGroupBox>
#include <QRadioButton>
#include <QTabWidget>

#include "framework/controls/group_box.h"
#include "framework/controls/radio_button.h"
#include "framework/controls/tab_panel.h"
#include "platform/qt/control_view.h"

namespace bracken {

// A control that is nothing but a frame of some shape.
template <QFrame::Shape shape, QFrame::Shadow shadow>
class FrameView : public QFrame, public ControlView {
  public:
    FrameView(RectControl& model, QWidget* parent) : QFrame(parent), ControlView(model, *this) {
        setFrameStyle(static_cast<int>(shape) | static_cast<int>(shadow));
    }

  protected:
    // A rule lies along its longer side.
    void sync() override {
        if (shape == QFrame::HLine)
            setFrameShape(width() < height() ? QFrame::VLine : QFrame::HLine);
    }
};

// The frame around a group; what lies in it are widgets beside it.
class GroupBoxView : public QGroupBox, public ControlView {
  public:
    GroupBoxView(GroupBox& model, QWidget* parent);

  protected:
    void sync() override;

  private:
    GroupBox& model_;
};

// One choice of several; the model knows the others.
class RadioButtonView : public QRadioButton, public ControlView {
  public:
    RadioButtonView(RadioButton& model, QWidget* parent);

  protected:
    void sync() override;

  private:
    RadioButton& model_;
};

// Tabs over a frame; what lies on the pages are widgets beside it.
class TabPanelView : public QTabWidget, public ControlView {
  public:
    TabPanelView(TabPanel& model, QWidget* parent);

  protected:
    void sync() override;

  private:
    TabPanel& model_;
};

}  // namespace bracken
