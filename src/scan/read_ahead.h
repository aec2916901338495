#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "framework/files/folder_item.h"
#include "framework/ref.h"
#include "scan/disk_threads.h"
#include "scan/file_search.h"
#include "scan/open_folder.h"
#include "scan/read_task.h"
#include "scan/table_names.h"
#include "scan/tree_walk.h"

namespace bracken {

// Names found in a file, by their numbers in the table that was searched for.
struct FoundNames {
    std::shared_ptr<const TableNames> table;
    std::vector<uint32_t> names;
};

// Reads and searches the files below a folder ahead of the scan, in the scan's order, on threads of
// its own, which never hold the baton and never touch the model: as many as there are cores for
// what lies in memory, and more that wait for the disk. It is a bounded number of files ahead, and
// keeps only what was found, no text. Belongs to one run's thread.
class ReadAhead {
  public:
    // `extensions` is a guess at what the scan will use in every folder from here on; files that
    // don't pass it are not opened.
    ReadAhead(const Ref<FolderItem>& folder, std::string extensions,
              std::shared_ptr<const TableNames> table);
    // Stops the threads; releases the baton while it waits for them.
    ~ReadAhead();
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    const std::string& root() const { return root_; }
    // Whether the folder is the root or below it, and the extensions are those guessed.
    bool covers(const std::string& folder, const std::string& extensions) const;

    // What was found in the file; drops files ahead of it in the order. Waits, without the baton,
    // for a file that is still being searched. None for a file that was not met or could not be
    // read.
    std::optional<FoundNames> take(const std::string& path);

  private:
    using TaskRef = std::shared_ptr<ReadTask>;

    void work();
    // Walks on, and appends the next files to the order; empty at the end of the walk.
    std::vector<TaskRef> nextTasks();
    // Nil at the end. Skips what can't be read: the scan will meet and report it.
    Ref<FolderItem> nextFile();
    TaskRef taskOf(const FolderItem& file);
    // Searches the file, or leaves it to the disk's threads.
    void perform(const TaskRef& task, FileSearch& search, Matcher::Hits& hits);
    // Searches the file on a thread that may wait for the disk.
    void performWaiting(ReadTask& task, FileSearch& search, Matcher::Hits& hits);
    // By one of the two searches of FileSearch.
    template <class Search>
    int searchBy(Search by, ReadTask& task, FileSearch& search, Matcher::Hits& hits);
    void finish(ReadTask& task, int error, const Matcher::Hits& hits);
    bool cancelled() const;
    // Wakes the run if it waits for a file.
    void announce();
    void waitFor(const ReadTask& task);
    TaskRef popUpTo(const std::string& path);
    TaskRef popReady(const std::string& path);

    const std::string root_;
    const std::string extensions_;
    const std::shared_ptr<const TableNames> table_;
    const std::atomic<bool>* const runKilled_;
    std::atomic<bool> stopped_{false};

    // Guards the walk; locked before the other.
    std::mutex walkMutex_;
    TreeWalk walk_;
    // The latest file's.
    std::shared_ptr<const OpenFolder> folder_;

    // Guards the order and whether the walk has ended.
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<TaskRef> order_;
    bool walkEnded_ = false;

    // Counts the announcements.
    std::atomic<uint32_t> finished_{0};
    // The file that the run waits for.
    std::atomic<const ReadTask*> awaited_{nullptr};

    // Whether the system says which files lie in memory, and whether that is known for sure.
    std::atomic<bool> systemSays_{true};
    std::atomic<bool> systemTried_{false};

    // Outlives the other threads.
    std::optional<DiskThreads> diskThreads_;
    std::vector<std::thread> threads_;
};

}  // namespace bracken
