#pragma once

#include <memory>
#include <string>

#include "framework/files/folder_item.h"
#include "framework/files/listing_cache.h"
#include "framework/ref.h"
#include "program/results/row_index.h"
#include "program/results/run_context.h"
#include "scan/read_ahead.h"

namespace bracken {

// Records the files of one run in the rows of the tables that they name. Lives on the run's thread,
// holding the baton.
class ResultRecorder {
  public:
    explicit ResultRecorder(RunContext& context) : context_(context) {}

    // Starts to read ahead from the folder, unless its files are being read ahead already with
    // these extensions.
    void enterFolder(const Ref<FolderItem>& folder, const std::string& extensions);
    void leaveFolder(const FolderItem& folder);

    // The folder's Count.
    int count(FolderItem& folder);
    // Searches the file for the names of the list's rows and records it in those hit, yielding
    // after each. A file that can't be read raises UnreadableException.
    void record(const FolderItem& file);

  private:
    // A stopping point, since it waits without the baton.
    void stopReadingAhead();
    // Makes a call that needs a file descriptor. If none is left, ends the threads that read ahead,
    // which frees theirs, for the rest of the run, and calls again.
    template <class Call>
    auto withDescriptor(const Call& call);
    FoundNames search(const FolderItem& file);
    // On this thread, piece by piece; a stop takes effect between pieces.
    FoundNames searchOnThisThread(const FolderItem& file);
    // The same; nothing is found in a file that has gone.
    FoundNames searchAgain(const FolderItem& file);
    // Updates the row index from the list; searches again if rows have names that `found` does not
    // cover.
    void update(FoundNames& found, const FolderItem& file);
    const std::shared_ptr<const TableNames>& tables();

    RunContext& context_;
    // The tree is walked three times.
    ListingCache listings_;
    std::shared_ptr<const TableNames> tables_;
    RowIndex rows_;
    std::unique_ptr<ReadAhead> ahead_;
    bool descriptorsRanOut_ = false;
};

}  // namespace bracken
