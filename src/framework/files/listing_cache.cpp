#include "framework/files/listing_cache.h"

#include <algorithm>
#include <mutex>
#include <unordered_map>

namespace bracken {

namespace {

using ContentsRef = std::shared_ptr<const FolderContents>;

// A hundred thousand names or so. Walks come by in one order, so what came first stays.
constexpr size_t maxBytes = 8 << 20;

size_t bytesOf(const FolderContents& contents) {
    size_t bytes = sizeof contents;
    for (const FolderContents::Entry& entry : contents.entries)
        bytes += sizeof entry + entry.name.capacity();
    return bytes;
}

// A link's target may go or change with no trace in the folder.
bool isKeepable(const FolderContents& contents) {
    return contents.settled &&
           std::none_of(contents.entries.begin(), contents.entries.end(),
                        [](const auto& entry) { return entry.link || entry.error != 0; });
}

class ListingStore {
  public:
    static ListingStore& instance() {
        static ListingStore theOne;
        return theOne;
    }

    void hold() {
        std::lock_guard guard(mutex_);
        holders_++;
    }

    void release() {
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
    ListingStore::instance().hold();
}

ListingCache::~ListingCache() {
    ListingStore::instance().release();
}

ContentsRef ListingCache::list(const std::string& path) {
    ContentsRef contents = ListingStore::instance().find(path);
    if (contents != nullptr && contents->isCurrent(path)) return contents;
    contents = FolderContents::read(path);
    if (contents != nullptr && isKeepable(*contents)) ListingStore::instance().keep(path, contents);
    return contents;
}

}  // namespace bracken
