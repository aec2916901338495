#pragma once

#include <cstdint>
#include <functional>

#include "framework/controls/control.h"
#include "framework/controls/text_style.h"

namespace bracken {

// A field for text, of one line or several.
class EditField : public RectControl {
  public:
    // Assigning always clears all styles and the selection; a different text fires TextChange.
    class FieldText : public Property<std::string> {
      public:
        FieldText(EditField& field, Hook hook);
        FieldText& operator=(std::string text);
        FieldText& operator=(const FieldText&) = delete;

      private:
        EditField& field_;
    };

    // One aspect of the selected text's style, to be assigned.
    template <class T>
    class SelectedStyle {
      public:
        using Setter = void (*)(TextStyle& style, const T& value);

        SelectedStyle(EditField& field, Setter setter) : field_(field), setter_(setter) {}
        SelectedStyle(const SelectedStyle&) = delete;
        void operator=(const SelectedStyle&) = delete;
        void operator=(const T& value) {
            field_.styleSelection([&](TextStyle& style) { setter_(style, value); });
        }

      private:
        EditField& field_;
        Setter setter_;
    };

    EditField(WindowContent& window, std::string name);

    FieldText Text;
    // Shows dots in place of the text.
    bool Password = false;
    bool MultiLine = false;
    // Whether its text can have styles.
    bool Styled = false;
    bool ScrollBarVertical = false;
    bool ScrollBarHorizontal = false;
    // Points; 0: the system's own.
    int TextSize = 0;

    // The selection, in bytes of Text from 0; what reaches beyond the text counts as its end.
    Property<int> SelStart;
    Property<int> SelLength;
    SelectedStyle<bool> SelBold;
    SelectedStyle<bool> SelOutline;
    SelectedStyle<Color> SelTextColor;

    std::function<void()> TextChange;

    const TextStyles& styles() const { return styles_; }
    // Each assignment of Text, and each change of a style, makes a new one. For the views.
    uint64_t textVersion() const { return textVersion_; }
    uint64_t styleVersion() const { return styleVersion_; }

    // The user edited a field of one line; `text` is its whole new text. What is edited in several
    // lines stays in the view until Text is assigned again.
    void userEdited(std::string text) { Text = std::move(text); }

  private:
    void styleSelection(const std::function<void(TextStyle&)>& change);
    void clearStyles();

    TextStyles styles_;
    uint64_t textVersion_ = 0;
    uint64_t styleVersion_ = 0;
};

}  // namespace bracken
