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
#include "scan/file_search.h"
#include "scan/open_folder.h"
#include "scan/table_names.h"
#include "scan/tree_walk.h"

namespace bracken {

// Names found in a file, by their numbers in the table that was searched for.
struct FoundNames {
    std::shared_ptr<const TableNames> table;
    std::vector<uint32_t> names;
};

// Reads and searches the files below a folder ahead of the scan, in the scan's order, on threads of
// its own, which never hold the baton and never touch the model. How far it runs ahead is bounded
// by a number of files; only what was found is kept, no text. Belongs to one run's thread.
class ReadAhead {
  public:
    // `extensions` is a guess at what the scan will use in every folder from here on; files that it
    // keeps out are not opened.
    ReadAhead(const Ref<FolderItem>& folder, std::string extensions,
              std::shared_ptr<const TableNames> table);
    // Stops the threads; gives the baton up while it waits for them.
    ~ReadAhead();
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    const std::string& root() const { return root_; }
    // Whether the folder lies at or below the root and its files pass by the extensions guessed.
    bool covers(const std::string& folder, const std::string& extensions) const;

    // What was found in the file; files ahead of it in the order are given up. Waits, without the
    // baton, for a file that is still being searched. Nothing for a file that was not met or could
    // not be read.
    std::optional<FoundNames> take(const std::string& path);

  private:
    struct Task {
        std::string path;
        bool listedAsFile;
        // Until the file has been searched.
        std::shared_ptr<const OpenFolder> folder;
        // Why it could not be read, 0 if it was.
        int error = 0;
        std::vector<uint32_t> names;
        std::atomic<bool> done{false};
    };
    using TaskRef = std::shared_ptr<Task>;

    void work();
    // Walks on, and enters the next files into the order; empty at the end of the walk.
    std::vector<TaskRef> nextTasks();
    // Nil at the end. What can't be seen is left to the scan, which meets it by itself.
    Ref<FolderItem> nextFile();
    TaskRef taskOf(const FolderItem& file);
    void perform(Task& task, FileSearch& search, Matcher::Hits& hits);
    bool cancelled() const;
    // Wakes the run if it waits for a file.
    void announce();
    void waitFor(const Task& task);
    TaskRef popUpTo(const std::string& path);
    TaskRef popReady(const std::string& path);

    const std::string root_;
    const std::string extensions_;
    const std::shared_ptr<const TableNames> table_;
    const std::atomic<bool>* const runKilled_;
    std::atomic<bool> stopped_{false};

    // Guards the walk; taken ahead of the other.
    std::mutex walkMutex_;
    TreeWalk walk_;
    // That of the latest file.
    std::shared_ptr<const OpenFolder> folder_;

    // Guards what follows.
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<TaskRef> order_;
    bool walkEnded_ = false;

    // Counts the announcements.
    std::atomic<uint32_t> finished_{0};

    std::vector<std::thread> threads_;
};

}  // namespace bracken
