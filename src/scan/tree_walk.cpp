#include "scan/tree_walk.h"

#include <utility>

namespace bracken {

TreeWalk::TreeWalk(const Ref<FolderItem>& folder, std::function<bool(const FolderItem&)> enters)
    : enters_(std::move(enters)), start_(folder->copy()) {}

void TreeWalk::enter(const Ref<FolderItem>& folder) {
    levels_.push_back({folder, folder->Count(), 1});
}

Ref<FolderItem> TreeWalk::next() {
    if (start_ != nullptr) enter(std::exchange(start_, nullptr));
    while (!levels_.empty()) {
        Level& level = levels_.back();
        if (level.next > level.count) {
            levels_.pop_back();
            continue;
        }
        Ref<FolderItem> item = level.folder->Item(level.next++);
        if (item == nullptr) continue;
        if (!item->Directory()) return item;
        if (!enters_ || enters_(*item)) enter(item);
    }
    return nullptr;
}

}  // namespace bracken
