#include "framework/ref.h"
#include "framework/text/text.h"
#include "framework/windows/window.h"
#include "plist/plist_dict.h"

namespace bracken {

void plistDict::SetWindow(std::string_view key, const Window* window) {
    if (!Exists(key)) AddChild(key);
    searched.Value(key, false);
    const Window& shown = checked(window);
    const Ref<plistDict> stored = child(key);
    stored->SetString("windowName", shown.Title);
    if (!stored->Exists("WindowPos")) stored->AddChild("WindowPos");
    stored->storeFrame(shown);
}

void plistDict::storeFrame(const Window& window) {
    const Ref<plistDict> frame = child("WindowPos");
    frame->SetInteger("left", window.Left);
    frame->SetInteger("top", window.Top);
    frame->SetInteger("width", window.Width);
    frame->SetInteger("height", window.Height);
}

void plistDict::AppendWindow(const Window* window) {
    if (!CheckArray()) return;
    AppendDict();
    const Ref<plistDict> stored = child(Str(count() - 1));
    const Window& shown = checked(window);
    stored->SetString("windowName", shown.Title);
    stored->AddChild("WindowPos");
    stored->storeFrame(shown);
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
