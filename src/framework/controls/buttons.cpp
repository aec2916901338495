#include "framework/controls/buttons.h"

#include "framework/controls/window_content.h"

namespace bracken {

PushButton::PushButton(WindowContent& window, std::string name)
    : RectControl(window, std::move(name)),
      Caption(*this, ""),
      Default(*this, false),
      toolTip(*this, "") {}

void PushButton::userPressed() {
    if (!usable() || window().closed() || !Action) return;
    auto keep = window().shared_from_this();
    Action();
}

CheckBox::CheckBox(WindowContent& window, std::string name)
    : RectControl(window, std::move(name)), Caption(*this, ""), Value(*this, false) {}

void CheckBox::userToggled(bool value) {
    Value = value;
    if (Action) Action();
}

RadioButton::RadioButton(WindowContent& window, std::string name)
    : RectControl(window, std::move(name)), Value(*this, false, [this](bool /*old*/) {
          if (Value) clearOthers();
      }) {}

void RadioButton::clearOthers() {
    for (Control* control : window().controls()) {
        auto* other = dynamic_cast<RadioButton*>(control);
        if (other != nullptr && other != this && other->Parent == Parent) other->Value = false;
    }
}

}  // namespace bracken
