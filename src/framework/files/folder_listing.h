#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "framework/files/folder_contents.h"

namespace bracken {

// The numbered names of a folder. Each count checks by one stat whether the folder has changed
// since it was listed, and lists it again if so: known entries keep their numbers, new ones go to
// the end. For one thread at a time.
class FolderListing {
  public:
    using Entry = FolderContents::Entry;

    // `link` is the folder that the path leads to if its last component is a link, `entered` what
    // the walk has entered until now.
    FolderListing(std::string path, std::optional<FolderIdentity> link,
                  std::shared_ptr<EnteredFolders> entered);

    // Entries, vanished ones included; 0 if there is no folder, and for a link to one that the walk
    // had entered. UnreadableException for a folder that can't be listed.
    size_t count();
    // Counted from 0, as of the latest count, at no cost; null outside the range. Valid until the
    // next call of any method.
    const Entry* entry(size_t index);
    // Whether the entry had vanished at the latest count.
    bool isGone(size_t index) const;
    const std::shared_ptr<EnteredFolders>& entered() const { return entered_; }

  private:
    void refresh();
    // Whether the walk had entered the folder before it followed this link to it.
    bool isRepeated(const FolderIdentity& folder) const;
    void merge(const std::vector<Entry>& present);
    const std::vector<Entry>& numbered() const {
        return renumbered_ ? *renumbered_ : contents_->entries;
    }

    std::string path_;
    std::optional<FolderIdentity> link_;
    std::shared_ptr<EnteredFolders> entered_;
    std::shared_ptr<const FolderContents> contents_;
    // Once the contents have changed: the entries by their numbers.
    std::optional<std::vector<Entry>> renumbered_;
    std::unordered_set<size_t> gone_;
    bool listable_ = false;
};

}  // namespace bracken
