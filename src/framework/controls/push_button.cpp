#include "framework/controls/push_button.h"

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

}  // namespace bracken
