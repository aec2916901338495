#pragma once

#include <functional>
#include <vector>

#include "framework/files/folder_item.h"
#include "framework/ref.h"

namespace bracken {

// The files below a folder, one by one, in the order of the scan. For one
// thread at a time; touches no model.
class TreeWalk {
  public:
    // `enters` says of each folder below the first whether to enter it; without it all are.
    explicit TreeWalk(const Ref<FolderItem>& folder,
                      std::function<bool(const FolderItem&)> enters = nullptr);

    // The next file; nil at the end. Skips entries that have vanished. Raises UnreadableException
    // for what can't be read; the next call goes on after that.
    Ref<FolderItem> next();

  private:
    struct Level {
        Ref<FolderItem> folder;
        int count;
        int next;
    };

    void enter(const Ref<FolderItem>& folder);

    const std::function<bool(const FolderItem&)> enters_;
    // Until the first call.
    Ref<FolderItem> start_;
    std::vector<Level> levels_;
};

}  // namespace bracken
