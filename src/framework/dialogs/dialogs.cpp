#include "framework/dialogs/dialogs.h"

#include "framework/threads/main_thread_calls.h"
#include "framework/threads/without_baton.h"

namespace bracken {

int MsgBox(const std::string& text, int code, const std::string& title) {
    return messageBox(text, code, title);
}

void Beep() {
    MainThreadCalls::instance().call([] { Platform::current().beep(); });
}

Ref<FolderItem> SelectFolder() {
    std::string path = withoutBaton([] { return Platform::current().selectFolder(); });
    return GetFolderItem(path, 0);
}

void Launch(const Ref<FolderItem>& file) {
    Platform::current().launch(file->AbsolutePath());
}

Ref<FolderItem> SaveAsDialog::ShowModal() const {
    std::string folder = InitialDirectory == nullptr ? "" : InitialDirectory->AbsolutePath();
    SaveQuestion question{folder, Title, PromptText, SuggestedFileName, Filter};
    std::string path = withoutBaton([&] { return Platform::current().saveFile(question); });
    return GetFolderItem(path, 0);
}

Clipboard::Clipboard() : Text(Platform::current().clipboardText()) {}

void Clipboard::Close() const {
    Platform::current().setClipboardText(Text);
}

}  // namespace bracken
