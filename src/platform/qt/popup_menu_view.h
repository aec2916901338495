#pragma once

#include <QComboBox>

#include "framework/controls/popup_menu.h"
#include "platform/qt/control_view.h"

namespace bracken {

// A menu of rows of which one is chosen.
class PopupMenuView : public QComboBox, public ControlView {
  public:
    PopupMenuView(PopupMenu& model, QWidget* parent);

  protected:
    void sync() override;

  private:
    void syncRows();

    PopupMenu& model_;
};

}  // namespace bracken
