#pragma once

#include "framework/controls/buttons.h"
#include "framework/controls/plain_controls.h"
#include "framework/windows/window.h"

namespace bracken {

// The question ahead of a report, which the user can silence for good.
class winConfirm : public Window {
  public:
    // Whether the user chose to go on.
    bool result = false;

    StaticText StaticText1{*this, "StaticText1"};
    PushButton butYes{*this, "butYes"};
    PushButton butNO{*this, "butNO"};
    CheckBox CheckBox1{*this, "CheckBox1"};

    // Asks, and returns `result` once the window has closed.
    bool init();

  protected:
    void Layout() override;
    void CreateControls() override;

  private:
    void _CreateControls0();
    void butYes_Action();
    void butNO_Action();
};

// The open question, made if there is none.
class winConfirm& winConfirm();

}  // namespace bracken
