#include "framework/controls/buttons.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/plain_controls.h"
#include "framework/ref.h"
#include "framework/text/text.h"
#include "framework/windows/window.h"
#include "plist/plist_dict.h"

namespace bracken {

void plistDict::SetWindow(std::string_view key, const Window* window) {
    if (!Exists(key)) AddChild(key);
    searched.Value(key, false);
    const Window& source = checked(window);
    Ref<plistDict> stored = child(key);
    stored->SetString("windowName", source.Title);
    if (!stored->Exists("WindowPos")) stored->AddChild("WindowPos");
    stored->storeFrame(source);
}

void plistDict::storeFrame(const Window& window) {
    Ref<plistDict> frame = child("WindowPos");
    frame->SetInteger("left", window.Left);
    frame->SetInteger("top", window.Top);
    frame->SetInteger("width", window.Width);
    frame->SetInteger("height", window.Height);
}

void plistDict::AppendWindow(const Window* window) {
    if (!CheckArray()) return;
    AppendDict();
    Ref<plistDict> stored = child(Str(count() - 1));
    const Window& source = checked(window);
    stored->SetString("windowName", source.Title);
    stored->AddChild("WindowPos");
    stored->storeFrame(source);
}

void plistDict::GetWindow(std::string_view key, Window* window) {
    if (!Exists(key)) SetWindow(key, window);
    Window& target = checked(window);
    Ref<plistDict> stored = child(key);
    target.Title = stored->GetString("windowName");
    Ref<plistDict> frame = stored->child("WindowPos");
    target.Left = frame->GetInteger("left");
    target.Top = frame->GetInteger("top");
    target.Width = frame->GetInteger("width");
    target.Height = frame->GetInteger("height");
}

void plistDict::SetEditField(const EditField* field) {
    const EditField& source = checked(field);
    SetString(source.name(), source.Text);
}

void plistDict::GetEditField(EditField* field) {
    EditField& target = checked(field);
    target.Text = GetString(target.name(), target.Text);
}

void plistDict::SetStaticText(const StaticText* label) {
    const StaticText& source = checked(label);
    SetString(source.name(), source.Caption);
}

void plistDict::GetStaticText(StaticText* label) {
    StaticText& target = checked(label);
    target.Caption = GetString(target.name(), target.Caption);
}

void plistDict::SetCheckbox(const CheckBox* box) {
    const CheckBox& source = checked(box);
    SetBoolean(source.name(), source.Value);
}

void plistDict::GetCheckbox(CheckBox* box) {
    CheckBox& target = checked(box);
    target.Value = GetBoolean(target.name(), target.Value);
}

void plistDict::SetRadio(const RadioButton* button) {
    const RadioButton& source = checked(button);
    SetBoolean(source.name(), source.Value);
}

void plistDict::GetRadio(RadioButton* button) {
    RadioButton& target = checked(button);
    target.Value = GetBoolean(target.name(), target.Value);
}

}  // namespace bracken
