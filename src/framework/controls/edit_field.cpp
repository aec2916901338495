#include "framework/controls/edit_field.h"

#include <algorithm>

#include "framework/controls/window_content.h"

namespace bracken {

EditField::FieldText::FieldText(EditField& field, Hook hook)
    : Property(field, "", std::move(hook)), field_(field) {}

EditField::FieldText& EditField::FieldText::operator=(std::string text) {
    field_.clearStyles();
    Property::operator=(std::move(text));
    return *this;
}

EditField::EditField(WindowContent& window, std::string name)
    : RectControl(window, std::move(name)),
      Text(*this,
           [this](const std::string&) {
               if (!TextChange) return;
               auto keep = this->window().weak_from_this().lock();
               TextChange();
           }),
      SelStart(*this, 0),
      SelLength(*this, 0),
      SelBold(*this, [](TextStyle& style, const bool& value) { style.bold = value; }),
      SelOutline(*this, [](TextStyle& style, const bool& value) { style.outline = value; }),
      SelTextColor(*this, [](TextStyle& style, const Color& value) {
          style.color = value;
          style.coloured = true;
      }) {}

void EditField::clearStyles() {
    styles_.clear();
    ++textVersion_;
    SelStart = 0;
    SelLength = 0;
    markDirty();
}

void EditField::styleSelection(const std::function<void(TextStyle&)>& change) {
    auto length = static_cast<int64_t>(Text.get().size());
    int64_t from = std::clamp<int64_t>(SelStart, 0, length);
    int64_t end = std::clamp<int64_t>(int64_t{SelStart} + SelLength, from, length);
    styles_.apply(from, end - from, change);
    ++styleVersion_;
    markDirty();
}

}  // namespace bracken
