#include "framework/files/folder_listing.h"

#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "framework/files/listing_cache.h"
#include "framework/threads/without_baton.h"

namespace bracken {

FolderListing::FolderListing(std::string path, std::optional<FolderIdentity> link,
                             std::shared_ptr<EnteredFolders> entered)
    : path_(std::move(path)), link_(link), entered_(std::move(entered)) {}

size_t FolderListing::count() {
    refresh();
    return listable_ ? numbered().size() : 0;
}

const FolderListing::Entry* FolderListing::entry(size_t index) {
    if (!contents_) refresh();
    return listable_ && index < numbered().size() ? &numbered()[index] : nullptr;
}

bool FolderListing::isGone(size_t index) const {
    return gone_.contains(index);
}

bool FolderListing::isRepeated(const FolderIdentity& folder) const {
    bool entered = contents_ && contents_->identity == folder;
    return link_ && !entered && entered_->has(folder);
}

void FolderListing::refresh() {
    if (!contents_ && link_ && isRepeated(*link_)) return;
    // Some file systems are slow.
    auto contents = withoutBaton([&] {
        bool current = listable_ && contents_->isCurrent(path_);
        return current ? contents_ : ListingCache::list(path_);
    });
    if (listable_ && contents == contents_) return;
    listable_ = contents && !isRepeated(contents->identity);
    if (!listable_) return;
    entered_->add(contents->identity);
    if (contents_) merge(contents->entries);
    contents_ = contents;
}

void FolderListing::merge(const std::vector<Entry>& present) {
    std::vector<Entry> merged = numbered();
    std::unordered_map<std::string, size_t> known;
    gone_.clear();
    for (size_t i = 0; i < merged.size(); ++i) {
        known.emplace(merged[i].name, i);
        gone_.insert(i);
    }
    std::vector<Entry> added;
    for (const Entry& entry : present) {
        auto at = known.find(entry.name);
        if (at == known.end()) {
            added.push_back(entry);
            continue;
        }
        gone_.erase(at->second);
        merged[at->second] = entry;
    }
    merged.insert(merged.end(), added.begin(), added.end());
    renumbered_ = std::move(merged);
}

}  // namespace bracken
