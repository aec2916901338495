#include "framework/controls/edit_field.h"

#include "framework/controls/window.h"

namespace bracken {

EditField::EditField(Window& window, std::string name)
    : RectControl(window, std::move(name)), Text(*this, "", [this](const std::string&) {
          if (!TextChange) return;
          auto keep = this->window().weak_from_this().lock();
          TextChange();
      }) {}

}  // namespace bracken
