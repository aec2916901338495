#pragma once

#include "framework/controls/control.h"

namespace bracken {

// A label.
class StaticText : public RectControl {
  public:
    StaticText(WindowContent& window, std::string name)
        : RectControl(window, std::move(name)), Caption(*this, "") {}

    Property<std::string> Caption;
    // Whether the text wraps over several lines.
    bool MultiLine = false;
    // Whether a text that is too long shows its end instead of its start.
    bool showsEnd = false;
};

}  // namespace bracken
