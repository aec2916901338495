#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "scan/file_search.h"
#include "scan/matcher.h"
#include "scan/read_task.h"

namespace bracken {

// Threads that wait for the disk, so that those which work on what lies in memory need not. They
// sleep most of the time, and are many since a disk takes many requests at a time. They start when
// the first file comes, and then also list the folders ahead of the walks.
class DiskThreads {
  public:
    // What searches a file, on any of these threads, with objects of that thread.
    using Search = std::function<void(ReadTask&, FileSearch&, Matcher::Hits&)>;

    // `root` is the folder whose tree is listed.
    DiskThreads(std::string root, Search search)
        : root_(std::move(root)), search_(std::move(search)) {}
    // Waits for what has begun, and drops the rest.
    ~DiskThreads();
    DiskThreads(const DiskThreads&) = delete;
    DiskThreads& operator=(const DiskThreads&) = delete;

    // Has the file searched after those added before; false if the system gives no thread for it.
    // Any thread.
    bool add(const std::shared_ptr<ReadTask>& task);

  private:
    // One of the two.
    struct Job {
        std::string folder;
        std::shared_ptr<ReadTask> task;
    };

    void work();
    // Nothing at the end.
    std::optional<Job> nextJob();
    // Puts the listing into the cache, and the folders in it up next.
    void list(const std::string& folder);
    // Holding the mutex; as many as the system gives.
    void startThreads();

    const std::string root_;
    const Search search_;

    std::mutex mutex_;
    std::condition_variable changed_;
    // The next one last, so that they are listed in about the order of a walk.
    std::vector<std::string> folders_;
    std::deque<std::shared_ptr<ReadTask>> tasks_;
    bool stopped_ = false;
    std::vector<std::thread> threads_;
};

}  // namespace bracken
