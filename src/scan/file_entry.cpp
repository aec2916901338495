#include "scan/file_entry.h"

#include <algorithm>

#include "framework/threads/without_baton.h"
#include "scan/file_search.h"
#include "scan/found_in.h"

namespace bracken {

const std::shared_ptr<const NameTable>& FileEntry::table() {
    Listbox& list = context_.lstResults();
    if (table_ == nullptr || !rows_.update(list, table_)) {
        table_ = std::make_shared<const NameTable>(list);
        rows_.update(list, table_);
    }
    return table_;
}

void FileEntry::enterFolder(const Ref<FolderItem>& folder, const std::string& extensions) {
    if (ahead_ != nullptr && ahead_->covers(folder->AbsolutePath(), extensions)) return;
    ahead_.reset();
    ahead_ = std::make_unique<ReadAhead>(folder, extensions, table());
}

void FileEntry::leaveFolder(const FolderItem& folder) {
    if (ahead_ != nullptr && ahead_->root() == folder.AbsolutePath()) ahead_.reset();
}

FoundNames FileEntry::searchText(const std::string& text) {
    std::shared_ptr<const NameTable> names = table();
    Matcher::Hits hits;
    hits.clear(names->matcher().nameCount());
    withoutBaton([&] { names->matcher().search(text, hits); });
    return {names, hits.names()};
}

FoundNames FileEntry::search(const FolderItem& file) {
    if (ahead_ != nullptr) {
        std::optional<FoundNames> found = ahead_->take(file.AbsolutePath());
        if (found) return *std::move(found);
    }
    Ref<BinaryStream> stream = file.OpenAsBinaryFile(false);
    std::string text = stream->Read(static_cast<int32_t>(searchedLength(file.Length())), nullptr);
    stream->Close();
    return searchText(text);
}

void FileEntry::update(FoundNames& found, const FolderItem& file) {
    while (!rows_.update(context_.lstResults(), found.table)) {
        // By now the file may be gone, and with it what it named.
        Ref<BinaryStream> stream = file.OpenAsBinaryFile(false);
        std::string text;
        if (stream != nullptr)
            text = stream->Read(static_cast<int32_t>(searchedLength(file.Length())), nullptr);
        found = searchText(text);
        ahead_.reset();
    }
}

void FileEntry::enter(const FolderItem& file) {
    FoundNames found = search(file);
    const std::string name = file.Name();
    const std::string path = file.AbsolutePath();
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
        enterFile(context_.lstResults(), row++, name, path);
        Thread::Yield();
    }
    context_.lblProgress().Refresh(true);
}

}  // namespace bracken
