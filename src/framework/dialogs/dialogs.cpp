#include "framework/dialogs/dialogs.h"

#include "framework/dialogs/platform.h"
#include "framework/threads/main_calls.h"
#include "framework/threads/without_baton.h"

namespace bracken {

namespace {

Platform* installed = nullptr;

}  // namespace

Platform& Platform::current() {
    if (installed == nullptr) throw NilObjectException("no platform is installed");
    return *installed;
}

void Platform::install(Platform* platform) {
    installed = platform;
}

int MsgBox(const std::string& text, int code, const std::string& title) {
    int answer = 0;
    MainCalls::instance().call([&] {
        answer = withoutBaton([&] { return Platform::current().messageBox(text, code, title); });
    });
    return answer;
}

void Beep() {
    MainCalls::instance().call([] { Platform::current().beep(); });
}

Ref<FolderItem> SelectFolder() {
    std::string path = withoutBaton([] { return Platform::current().selectFolder(); });
    return GetFolderItem(path, 0);
}

void Launch(const Ref<FolderItem>& file) {
    Platform::current().launch(file->AbsolutePath());
}

}  // namespace bracken
