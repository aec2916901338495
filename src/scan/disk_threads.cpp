#include "scan/disk_threads.h"

#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <system_error>
#include <utility>

#include "framework/files/listing_cache.h"
#include "framework/files/paths.h"
#include "framework/files/unreadable.h"

namespace bracken {

namespace {

// Twice as many bring no disk measured more than a tenth.
constexpr size_t maxThreads = 32;

// Many of them become ready at once, and a window must not wait until all have had a turn.
// What they do when they run is little, and a busy core has better to do meanwhile.
constexpr int niceness = 19;

// Real folders in the folder, by their paths, the last one first.
std::vector<std::string> foldersIn(const std::string& folder) {
    std::vector<std::string> found;
    try {
        auto contents = ListingCache::list(folder);
        if (contents == nullptr) return found;
        for (const FolderContents::Entry& entry : contents->entries)
            if (entry.directory && !entry.link) found.push_back(joinPath(folder, entry.name));
    } catch (const UnreadableException&) {
        // A walk will meet and report it.
    }
    std::reverse(found.begin(), found.end());
    return found;
}

}  // namespace

DiskThreads::~DiskThreads() {
    {
        std::lock_guard guard(mutex_);
        stopped_ = true;
    }
    changed_.notify_all();
    for (std::thread& thread : threads_) thread.join();
}

bool DiskThreads::add(const std::shared_ptr<ReadTask>& task) {
    {
        std::lock_guard guard(mutex_);
        if (threads_.empty()) startThreads();
        if (threads_.empty()) return false;
        tasks_.push_back(task);
    }
    changed_.notify_one();
    return true;
}

void DiskThreads::startThreads() {
    folders_ = {root_};
    try {
        while (threads_.size() < maxThreads) threads_.emplace_back([this] { work(); });
    } catch (const std::system_error&) {
        // Those there are do it all.
    }
}

void DiskThreads::work() {
    [[maybe_unused]] int lowered = nice(niceness);
    FileSearch search;
    Matcher::Hits hits;
    while (std::optional<Job> job = nextJob()) {
        if (job->task != nullptr)
            search_(*job->task, search, hits);
        else
            list(job->folder);
    }
}

std::optional<DiskThreads::Job> DiskThreads::nextJob() {
    std::unique_lock guard(mutex_);
    changed_.wait(guard, [this] { return stopped_ || !folders_.empty() || !tasks_.empty(); });
    if (stopped_) return std::nullopt;
    Job job;
    if (!folders_.empty()) {
        job.folder = std::move(folders_.back());
        folders_.pop_back();
    } else {
        job.task = std::move(tasks_.front());
        tasks_.pop_front();
    }
    return job;
}

void DiskThreads::list(const std::string& folder) {
    std::vector<std::string> found = foldersIn(folder);
    {
        std::lock_guard guard(mutex_);
        std::move(found.begin(), found.end(), std::back_inserter(folders_));
    }
    changed_.notify_all();
}

}  // namespace bracken
