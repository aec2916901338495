#include "framework/controls/radio_button.h"

#include "framework/controls/window_content.h"

namespace bracken {

RadioButton::RadioButton(WindowContent& window, std::string name)
    : RectControl(window, std::move(name)), Value(*this, false, [this](bool /*old*/) {
          if (!Value) return;
          for (Control* control : this->window().controls()) {
              auto* other = dynamic_cast<RadioButton*>(control);
              if (other != nullptr && other != this && other->Parent == Parent)
                  other->Value = false;
          }
      }) {}

}  // namespace bracken
