#pragma once

#include <sys/stat.h>

#include <memory>
#include <string>
#include <vector>

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
    struct Entry {
        std::string name;
        bool directory;
        // A regular file, and no link to one.
        bool file;
        bool link;
        bool gone;
    };

    // `above` is the chain that led here, null where the walk begins.
    FolderListing(std::string path, std::shared_ptr<const FolderChain> above);

    // Entries, vanished ones included; 0 for what can't be listed or lies on its own chain.
    size_t count();
    // Counted from 0, as of the latest count, at no cost; null outside the range. Valid until the
    // next call of any method.
    const Entry* entry(size_t index);
    // The chain that leads to this folder's entries; null before the first listing.
    const std::shared_ptr<const FolderChain>& chain() const { return chain_; }

  private:
    void refresh();
    bool upToDate(const struct stat& facts) const;
    void list();
    void merge(std::vector<Entry> present);

    std::string path_;
    std::shared_ptr<const FolderChain> above_;
    std::shared_ptr<const FolderChain> chain_;
    std::vector<Entry> entries_;
    struct timespec changed_ = {};
    // Whether a later change is sure to show in the folder's time of change.
    bool settled_ = false;
    bool listable_ = false;
};

}  // namespace bracken
