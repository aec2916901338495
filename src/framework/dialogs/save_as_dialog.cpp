#include "framework/dialogs/save_as_dialog.h"

#include "framework/platform/platform.h"
#include "framework/threads/without_baton.h"

namespace bracken {

Ref<FolderItem> SaveAsDialog::ShowModal() const {
    std::string folder = InitialDirectory == nullptr ? "" : InitialDirectory->AbsolutePath();
    SaveQuestion question{folder, Title, PromptText, SuggestedFileName, Filter};
    std::string path = withoutBaton([&] { return Platform::current().saveFile(question); });
    return GetFolderItem(path, 0);
}

}  // namespace bracken
