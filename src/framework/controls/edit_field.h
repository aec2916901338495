#pragma once

#include <functional>

#include "framework/controls/control.h"

namespace bracken {

// A field for a line of text.
class EditField : public RectControl {
  public:
    EditField(Window& window, std::string name);

    // Writing a different text fires TextChange.
    Property<std::string> Text;
    // Shows dots in place of the text.
    bool Password = false;

    std::function<void()> TextChange;

    // The user edited the field; `text` is its whole new text.
    void userEdited(std::string text) { Text = std::move(text); }
};

}  // namespace bracken
