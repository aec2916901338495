#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <memory>
#include <mutex>
#include <unordered_map>

namespace bracken {

// Equal for one folder, whatever the path by which it is reached.
struct FolderIdentity {
    explicit FolderIdentity(const struct stat& status)
        : device(status.st_dev), inode(status.st_ino) {}
    friend bool operator==(const FolderIdentity&, const FolderIdentity&) = default;

    dev_t device;
    ino_t inode;
};

// The folders that one walk has entered until now. Any thread.
class EnteredFolders {
  public:
    // A walk that has entered what the walk of `before` has entered until now, and then goes on
    // separately; null for a walk that has entered none.
    explicit EnteredFolders(std::shared_ptr<const EnteredFolders> before);

    void add(const FolderIdentity& folder);
    bool has(const FolderIdentity& folder) const;

  private:
    struct Hash {
        size_t operator()(const FolderIdentity& folder) const {
            return std::hash<ino_t>()(folder.inode ^ (ino_t{folder.device} << 40));
        }
    };

    size_t size() const;
    bool hasAmongFirst(size_t count, const FolderIdentity& folder) const;

    std::shared_ptr<const EnteredFolders> before_;
    // How many of those, in the order of entering, this walk has entered too.
    size_t beforeCount_;

    mutable std::mutex mutex_;
    // Each with its index in the order of entering.
    std::unordered_map<FolderIdentity, size_t, Hash> places_;
};

}  // namespace bracken
