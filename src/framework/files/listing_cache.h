#pragma once

#include <memory>
#include <string>

#include "framework/files/folder_contents.h"

namespace bracken {

// Caches the contents of folders for later walks over them, as long as any object of this class
// lives, and up to a few megabytes. What it returns is as good as read again. Any thread.
class ListingCache {
  public:
    ListingCache();
    ~ListingCache();
    ListingCache(const ListingCache&) = delete;
    ListingCache& operator=(const ListingCache&) = delete;

    // What the folder holds, as FolderContents::read returns it.
    static std::shared_ptr<const FolderContents> list(const std::string& path);
};

}  // namespace bracken
