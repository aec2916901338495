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

// Enters the files of one run into the rows of the list that name them. Lives on the run's thread,
// holding the baton.
class ResultRecorder {
  public:
    explicit ResultRecorder(RunContext& context) : context_(context) {}

    // Begins to read ahead from the folder, if nothing is being read ahead there with these
    // extensions.
    void enterFolder(const Ref<FolderItem>& folder, const std::string& extensions);
    void leaveFolder(const FolderItem& folder);

    // Number of the folder's entries, as Count says.
    int count(FolderItem& folder);
    // Searches the file for the names of the list's rows and enters it into those hit, yielding
    // after each. A file that can't be read raises UnreadableException.
    void enter(const FolderItem& file);

  private:
    // A stopping point, since it waits without the baton.
    void stopReadingAhead();
    // Makes a call that needs a file descriptor. Where there is none left the threads that read
    // ahead give up theirs, and the rest of the run goes without.
    template <class Call>
    auto givingWay(const Call& call);
    FoundNames search(const FolderItem& file);
    // On this thread, piece by piece, hearing a stop between them.
    FoundNames searchHere(const FolderItem& file);
    // The same, with nothing found in a file that is there no more.
    FoundNames searchAgain(const FolderItem& file);
    // Brings the row index up to the list; searches anew if rows have come with names that nothing
    // was searched for.
    void update(FoundNames& found, const FolderItem& file);
    const std::shared_ptr<const TableNames>& table();

    RunContext& context_;
    // The tree is walked three times.
    ListingCache listings_;
    std::shared_ptr<const TableNames> table_;
    RowIndex rows_;
    std::unique_ptr<ReadAhead> ahead_;
    bool gaveWay_ = false;
};

}  // namespace bracken
