#include "framework/files/listing_cache.h"

#include <algorithm>
#include <mutex>
#include <unordered_map>

namespace bracken {

namespace {

using ContentsRef = std::shared_ptr<const FolderContents>;

// About a hundred thousand names. All walks have one order, so the first listings stay.
constexpr size_t maxBytes = 8 << 20;

size_t bytesOf(const FolderContents& contents) {
    size_t bytes = sizeof contents;
    for (const FolderContents::Entry& entry : contents.entries)
        bytes += sizeof entry + entry.name.capacity();
    return bytes;
}

// A link's target may change without a change of the folder.
bool isCacheable(const FolderContents& contents) {
    return contents.showsLaterChanges &&
           std::none_of(contents.entries.begin(), contents.entries.end(),
                        [](const auto& entry) { return entry.link || entry.error != 0; });
}

class ListingStore {
  public:
    static ListingStore& instance() {
        static ListingStore store;
        return store;
    }

    void addHolder() {
        std::lock_guard guard(mutex_);
        holders_++;
    }

    void removeHolder() {
        std::lock_guard guard(mutex_);
        if (--holders_ > 0) return;
        folders_.clear();
        bytes_ = 0;
    }

    ContentsRef find(const std::string& path) {
        std::lock_guard guard(mutex_);
        auto at = folders_.find(path);
        return at == folders_.end() ? nullptr : at->second;
    }

    void keep(const std::string& path, const ContentsRef& contents) {
        size_t bytes = path.size() + bytesOf(*contents);
        std::lock_guard guard(mutex_);
        if (holders_ == 0 || bytes_ + bytes > maxBytes) return;
        if (folders_.insert_or_assign(path, contents).second) bytes_ += bytes;
    }

  private:
    std::mutex mutex_;
    std::unordered_map<std::string, ContentsRef> folders_;
    size_t bytes_ = 0;
    int holders_ = 0;
};

}  // namespace

ListingCache::ListingCache() {
    ListingStore::instance().addHolder();
}

ListingCache::~ListingCache() {
    ListingStore::instance().removeHolder();
}

ContentsRef ListingCache::list(const std::string& path) {
    ContentsRef contents = ListingStore::instance().find(path);
    if (contents != nullptr && contents->isCurrent(path)) return contents;
    contents = FolderContents::read(path);
    if (contents != nullptr && isCacheable(*contents))
        ListingStore::instance().keep(path, contents);
    return contents;
}

}  // namespace bracken
