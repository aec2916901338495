#include "program/results/result_recorder.h"

#include <algorithm>
#include <atomic>
#include <cerrno>

#include "framework/files/unreadable.h"
#include "framework/threads/without_baton.h"
#include "scan/file_search.h"

namespace bracken {

const std::shared_ptr<const TableNames>& ResultRecorder::tables() {
    Listbox& list = context_.lstResults();
    if (tables_ == nullptr || !rows_.update(list, tables_)) {
        tables_ = tableNamesOf(list);
        rows_.update(list, tables_);
    }
    return tables_;
}

void ResultRecorder::enterFolder(const Ref<FolderItem>& folder, const std::string& extensions) {
    if (descriptorsRanOut_) return;
    if (ahead_ != nullptr && ahead_->covers(folder->AbsolutePath(), extensions)) return;
    stopReadingAhead();
    ahead_ = std::make_unique<ReadAhead>(folder, extensions, tables());
}

void ResultRecorder::leaveFolder(const FolderItem& folder) {
    if (ahead_ != nullptr && ahead_->root() == folder.AbsolutePath()) stopReadingAhead();
}

void ResultRecorder::stopReadingAhead() {
    ahead_.reset();
    Thread::leaveIfKilled();
}

template <class Call>
auto ResultRecorder::withDescriptor(const Call& call) {
    try {
        return call();
    } catch (const UnreadableException& error) {
        const bool noneLeft = error.error() == EMFILE || error.error() == ENFILE;
        if (!noneLeft || ahead_ == nullptr) throw;
    }
    descriptorsRanOut_ = true;
    stopReadingAhead();
    return call();
}

int ResultRecorder::count(FolderItem& folder) {
    return withDescriptor([&] { return folder.Count(); });
}

FoundNames ResultRecorder::searchOnThisThread(const FolderItem& file) {
    std::shared_ptr<const TableNames> names = tables();
    Matcher::Hits hits;
    hits.clear(names->matcher().nameCount());
    const std::atomic<bool>* killed = Thread::killedFlag();
    int error = withoutBaton([&] {
        return FileSearch().search(
            OpenFolder(), file.AbsolutePath(), file.listedAsFile(), names->matcher(),
            [killed] { return killed->load(std::memory_order_relaxed); }, hits);
    });
    if (error != 0) throw UnreadableException(file.AbsolutePath(), error);
    return {names, hits.names()};
}

FoundNames ResultRecorder::search(const FolderItem& file) {
    if (ahead_ != nullptr) {
        std::optional<FoundNames> found = ahead_->take(file.AbsolutePath());
        if (found) return *std::move(found);
    }
    return withDescriptor([&] { return searchOnThisThread(file); });
}

FoundNames ResultRecorder::searchAgain(const FolderItem& file) {
    try {
        return withDescriptor([&] { return searchOnThisThread(file); });
    } catch (const UnreadableException& error) {
        // By now the file may be gone, and with it what it named.
        if (!isAbsence(error.error())) throw;
    }
    return {tables(), {}};
}

void ResultRecorder::update(FoundNames& found, const FolderItem& file) {
    while (!rows_.update(context_.lstResults(), found.table)) {
        found = searchAgain(file);
        stopReadingAhead();
    }
}

void ResultRecorder::record(const FolderItem& file) {
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
