#include "framework/controls/window.h"
#include "plist/plist_dict.h"

namespace bracken {

namespace {

template <class T>
T& checked(T* object) {
    if (object == nullptr) throw NilObjectException();
    return *object;
}

}  // namespace

void plistDict::SetWindow(std::string_view key, const Window* window) {
    if (!Exists(key)) AddChild(key);
    searched.Value(key, false);
    const Window& shown = checked(window);
    const Ref<plistDict> stored = child(key);
    stored->SetString("windowName", shown.Title);
    if (!stored->Exists("WindowPos")) stored->AddChild("WindowPos");
    const Ref<plistDict> frame = stored->child("WindowPos");
    frame->SetInteger("left", shown.Left);
    frame->SetInteger("top", shown.Top);
    frame->SetInteger("width", shown.Width);
    frame->SetInteger("height", shown.Height);
}

void plistDict::GetWindow(std::string_view key, Window* window) {
    if (!Exists(key)) SetWindow(key, window);
    Window& shown = checked(window);
    const Ref<plistDict> stored = child(key);
    shown.Title = stored->GetString("windowName");
    const Ref<plistDict> frame = stored->child("WindowPos");
    shown.Left = frame->GetInteger("left");
    shown.Top = frame->GetInteger("top");
    shown.Width = frame->GetInteger("width");
    shown.Height = frame->GetInteger("height");
}

}  // namespace bracken
