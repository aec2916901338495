#include "framework/files/entered_folders.h"

#include <limits>
#include <utility>

namespace bracken {

EnteredFolders::EnteredFolders(std::shared_ptr<const EnteredFolders> before)
    : before_(std::move(before)), beforeCount_(before_ ? before_->size() : 0) {}

void EnteredFolders::add(const FolderIdentity& folder) {
    std::lock_guard guard(mutex_);
    places_.emplace(folder, places_.size());
}

bool EnteredFolders::has(const FolderIdentity& folder) const {
    return hasAmongFirst(std::numeric_limits<size_t>::max(), folder);
}

size_t EnteredFolders::size() const {
    std::lock_guard guard(mutex_);
    return places_.size();
}

bool EnteredFolders::hasAmongFirst(size_t count, const FolderIdentity& folder) const {
    {
        std::lock_guard guard(mutex_);
        auto at = places_.find(folder);
        if (at != places_.end() && at->second < count) return true;
    }
    return before_ != nullptr && before_->hasAmongFirst(beforeCount_, folder);
}

}  // namespace bracken
