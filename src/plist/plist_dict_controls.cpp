#include "framework/controls/buttons.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/plain_controls.h"
#include "framework/ref.h"
#include "plist/plist_dict.h"

namespace bracken {

void plistDict::SetEditField(const EditField* field) {
    const EditField& shown = checked(field);
    SetString(shown.name(), shown.Text);
}

void plistDict::GetEditField(EditField* field) {
    EditField& shown = checked(field);
    shown.Text = GetString(shown.name(), shown.Text);
}

void plistDict::SetStaticText(const StaticText* label) {
    const StaticText& shown = checked(label);
    SetString(shown.name(), shown.Caption);
}

void plistDict::GetStaticText(StaticText* label) {
    StaticText& shown = checked(label);
    shown.Caption = GetString(shown.name(), shown.Caption);
}

void plistDict::SetCheckbox(const CheckBox* box) {
    const CheckBox& shown = checked(box);
    SetBoolean(shown.name(), shown.Value);
}

void plistDict::GetCheckbox(CheckBox* box) {
    CheckBox& shown = checked(box);
    shown.Value = GetBoolean(shown.name(), shown.Value);
}

void plistDict::SetRadio(const RadioButton* button) {
    const RadioButton& shown = checked(button);
    SetBoolean(shown.name(), shown.Value);
}

void plistDict::GetRadio(RadioButton* button) {
    RadioButton& shown = checked(button);
    shown.Value = GetBoolean(shown.name(), shown.Value);
}

}  // namespace bracken
