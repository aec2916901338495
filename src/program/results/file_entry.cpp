#include "program/results/file_entry.h"

#include <algorithm>
#include <atomic>

#include "framework/threads/without_baton.h"
#include "scan/file_search.h"

namespace bracken {

const std::shared_ptr<const TableNames>& FileEntry::table() {
    Listbox& list = context_.lstResults();
    if (table_ == nullptr || !rows_.update(list, table_)) {
        table_ = tableNamesOf(list);
        rows_.update(list, table_);
    }
    return table_;
}

void FileEntry::enterFolder(const Ref<FolderItem>& folder, const std::string& extensions) {
    if (ahead_ != nullptr && ahead_->covers(folder->AbsolutePath(), extensions)) return;
    stopReadingAhead();
    ahead_ = std::make_unique<ReadAhead>(folder, extensions, table());
}

void FileEntry::leaveFolder(const FolderItem& folder) {
    if (ahead_ != nullptr && ahead_->root() == folder.AbsolutePath()) stopReadingAhead();
}

void FileEntry::stopReadingAhead() {
    ahead_.reset();
    Thread::leaveIfKilled();
}

FoundNames FileEntry::searchOpened(BinaryStream& stream, uint64_t length) {
    std::shared_ptr<const TableNames> names = table();
    Matcher::Hits hits;
    hits.clear(names->matcher().nameCount());
    const std::atomic<bool>* killed = Thread::killedFlag();
    withoutBaton([&] {
        FileSearch().searchOpened(
            stream.descriptor(), searchedLength(length), names->matcher(),
            [killed] { return killed->load(std::memory_order_relaxed); }, hits);
    });
    return {names, hits.names()};
}

FoundNames FileEntry::search(const FolderItem& file) {
    if (ahead_ != nullptr) {
        std::optional<FoundNames> found = ahead_->take(file.AbsolutePath());
        if (found) return *std::move(found);
    }
    Ref<BinaryStream> stream = file.OpenAsBinaryFile(false);
    return searchOpened(*stream, file.Length());
}

void FileEntry::update(FoundNames& found, const FolderItem& file) {
    while (!rows_.update(context_.lstResults(), found.table)) {
        // By now the file may be gone, and with it what it named.
        Ref<BinaryStream> stream = file.OpenAsBinaryFile(false);
        if (stream == nullptr) stream = make<BinaryStream>(-1);
        found = searchOpened(*stream, file.Length());
        stopReadingAhead();
    }
}

void FileEntry::enter(const FolderItem& file) {
    FoundNames found = search(file);
    const std::string name = file.Name();
    const std::string& path = file.AbsolutePath();
    std::vector<int> hits;
    uint64_t version = 0;
    size_t next = 0;
    for (int row = 0;;) {
        if (version != context_.lstResults().structureVersion()) {
            update(found, file);
            version = rows_.version();
            hits = rows_.rowsOf(found.names);
            next =
                static_cast<size_t>(std::lower_bound(hits.begin(), hits.end(), row) - hits.begin());
        }
        if (next == hits.size()) break;
        row = hits[next++];
        context_.lstResults().recordFile(row++, name, path);
        Thread::Yield();
    }
    context_.lblProgress().Refresh(true);
}

}  // namespace bracken
