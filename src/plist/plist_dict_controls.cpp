#include "framework/checked.h"
#include "framework/controls/check_box.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/radio_button.h"
#include "framework/controls/static_text.h"
#include "plist/plist_dict.h"

namespace bracken {

void plistDict::SetEditField(const EditField* field) {
    SetString(checked(field).name(), field->Text);
}

void plistDict::GetEditField(EditField* field) {
    field->Text = GetString(checked(field).name(), field->Text);
}

void plistDict::SetStaticText(const StaticText* label) {
    SetString(checked(label).name(), label->Caption);
}

void plistDict::GetStaticText(StaticText* label) {
    label->Caption = GetString(checked(label).name(), label->Caption);
}

void plistDict::SetCheckbox(const CheckBox* box) {
    SetBoolean(checked(box).name(), box->Value);
}

void plistDict::GetCheckbox(CheckBox* box) {
    box->Value = GetBoolean(checked(box).name(), box->Value);
}

void plistDict::SetRadio(const RadioButton* button) {
    SetBoolean(checked(button).name(), button->Value);
}

void plistDict::GetRadio(RadioButton* button) {
    button->Value = GetBoolean(checked(button).name(), button->Value);
}

}  // namespace bracken
