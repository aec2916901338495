#pragma once

#include <sys/stat.h>

#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "framework/files/folder_contents.h"

namespace bracken {

// The folders that led to a folder, innermost first, by identity.
struct FolderChain {
    dev_t device;
    ino_t inode;
    std::shared_ptr<const FolderChain> above;
};

// The numbered names of a folder. Each count looks whether the folder was touched since it was
// listed (one stat) and lists it anew if so: known entries keep their numbers, new ones go to the
// end. For one thread at a time.
class FolderListing {
  public:
    using Entry = FolderContents::Entry;

    // `above` is the chain that led here, null where the walk begins.
    FolderListing(std::string path, std::shared_ptr<const FolderChain> above);

    // Entries, vanished ones included; 0 for what can't be listed or lies on its own chain.
    size_t count();
    // Counted from 0, as of the latest count, at no cost; null outside the range. Valid until the
    // next call of any method.
    const Entry* entry(size_t index);
    // Whether the entry had vanished at the latest count.
    bool isGone(size_t index) const;
    // The chain that leads to this folder's entries; null before the first listing.
    const std::shared_ptr<const FolderChain>& chain() const { return chain_; }

  private:
    void refresh();
    void merge(const std::vector<Entry>& present);
    const std::vector<Entry>& numbered() const {
        return renumbered_ ? *renumbered_ : contents_->entries;
    }

    std::string path_;
    std::shared_ptr<const FolderChain> above_;
    std::shared_ptr<const FolderChain> chain_;
    std::shared_ptr<const FolderContents> contents_;
    // Once the contents have changed: the entries by their numbers.
    std::optional<std::vector<Entry>> renumbered_;
    std::unordered_set<size_t> gone_;
    bool listable_ = false;
};

}  // namespace bracken
