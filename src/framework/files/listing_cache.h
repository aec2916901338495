#pragma once

#include <memory>
#include <string>

#include "framework/files/folder_contents.h"

namespace bracken {

// Keeps what stood in folders, for walks that come by again: for as long as any of its holders
// lives, and up to a few megabytes. What it gives is as good as read anew. Any thread.
class ListingCache {
  public:
    ListingCache();
    ~ListingCache();
    ListingCache(const ListingCache&) = delete;
    ListingCache& operator=(const ListingCache&) = delete;

    // What stands in the folder, as FolderContents::read gives it.
    static std::shared_ptr<const FolderContents> list(const std::string& path);
};

}  // namespace bracken
