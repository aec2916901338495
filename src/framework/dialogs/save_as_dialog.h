#pragma once

#include <string>

#include "framework/files/folder_item.h"
#include "framework/ref.h"

namespace bracken {

// Asks the user for a file to write. Main thread.
class SaveAsDialog {
  public:
    // The folder it starts in; nil leaves that to the desktop.
    Ref<FolderItem> InitialDirectory;
    std::string PromptText;
    std::string SuggestedFileName;
    std::string Title;
    // Extension of the files it lists; empty for all. The name that the user gives needs none, and
    // gets none.
    std::string Filter;

    // Blocks until the user has answered; nil if the choice is cancelled. The desktop has put its
    // question about a file that exists.
    Ref<FolderItem> ShowModal() const;
};

}  // namespace bracken
