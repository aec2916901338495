#include "scan/read_ahead.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <system_error>

#include "framework/files/paths.h"
#include "framework/files/unreadable.h"
#include "framework/threads/thread.h"
#include "framework/threads/without_baton.h"

namespace bracken {

namespace {

// Files that the threads may be ahead of the scan: enough to keep them busy while the scan counts
// the files of most trees, and a few megabytes.
constexpr size_t maxFilesAhead = 16384;
// Threads that have got so far wait until the scan has caught up to here.
constexpr size_t resumeBelow = maxFilesAhead / 2;
// Files that a thread takes from the walk at a time, so that the threads rarely contend for it.
constexpr size_t batchSize = 16;

// Waking the run costs as much as reading a small file, so it is woken after a batch, or after this
// time.
constexpr std::chrono::milliseconds announceAfter{5};

// The threads have a lower priority than the scan and the windows. Each of those two is one thread
// that others wait for, and must not share its processor with work that any can do.
constexpr int workerNiceness = 5;

unsigned threadCount() {
    return std::clamp(std::thread::hardware_concurrency(), 2U, 8U);
}

}  // namespace

ReadAhead::ReadAhead(const Ref<FolderItem>& folder, std::string extensions,
                     std::shared_ptr<const TableNames> table)
    : root_(folder->AbsolutePath()),
      extensions_(std::move(extensions)),
      table_(std::move(table)),
      runKilled_(Thread::killedFlag()),
      walk_(folder) {
    diskThreads_.emplace(root_, [this](auto& task, auto& search, auto& hits) {
        performWaiting(task, search, hits);
    });
    try {
        for (unsigned i = 0; i < threadCount(); i++) threads_.emplace_back([this] { work(); });
    } catch (const std::system_error&) {
        // The system gives no more threads: the run itself reads what none of them reads.
        if (threads_.empty()) walkEnded_ = true;
    }
}

ReadAhead::~ReadAhead() {
    {
        std::lock_guard guard(mutex_);
        stopped_ = true;
    }
    changed_.notify_all();
    BatonRelease released;
    for (std::thread& thread : threads_) thread.join();
    diskThreads_.reset();
}

bool ReadAhead::covers(const std::string& folder, const std::string& extensions) const {
    bool below = folder == root_ || root_ == "/" || folder.starts_with(root_ + "/");
    return below && extensions == extensions_;
}

bool ReadAhead::cancelled() const {
    return stopped_.load(std::memory_order_relaxed) || runKilled_->load(std::memory_order_relaxed);
}

void ReadAhead::work() {
    [[maybe_unused]] int niceness = nice(workerNiceness);
    FileSearch search;
    Matcher::Hits hits;
    for (std::vector<TaskRef> tasks = nextTasks(); !tasks.empty(); tasks = nextTasks()) {
        auto announced = std::chrono::steady_clock::now();
        for (const TaskRef& task : tasks) {
            perform(task, search, hits);
            auto now = std::chrono::steady_clock::now();
            if (now - announced < announceAfter) continue;
            announced = now;
            announce();
        }
        announce();
    }
}

void ReadAhead::perform(const TaskRef& task, FileSearch& search, Matcher::Hits& hits) {
    if (systemSays_.load(std::memory_order_relaxed)) {
        int error = searchBy(&FileSearch::searchCached, *task, search, hits);
        if (error != EAGAIN) return finish(*task, error, hits);
        // As many as wait for the disk would need too many descriptors.
        task->folder.reset();
        if (diskThreads_->add(task)) return;
    }
    finish(*task, searchBy(&FileSearch::search, *task, search, hits), hits);
}

void ReadAhead::performWaiting(ReadTask& task, FileSearch& search, Matcher::Hits& hits) {
    int error = searchBy(&FileSearch::search, task, search, hits);
    finish(task, error, hits);
    // Some file systems always say that they would wait. This file surely lies in memory now.
    if (error == 0 && !systemTried_.exchange(true))
        systemSays_ = searchBy(&FileSearch::searchCached, task, search, hits) != EAGAIN;
    if (awaited_ == &task) announce();
}

template <class Search>
int ReadAhead::searchBy(Search by, ReadTask& task, FileSearch& search, Matcher::Hits& hits) {
    if (cancelled()) return ECANCELED;
    const Matcher& matcher = table_->matcher();
    hits.clear(matcher.nameCount());
    const OpenFolder anyFolder;
    return (search.*by)(
        task.folder ? *task.folder : anyFolder, task.path, task.listedAsFile, matcher,
        [this] { return cancelled(); }, hits);
}

void ReadAhead::finish(ReadTask& task, int error, const Matcher::Hits& hits) {
    task.error = error;
    task.names = hits.names();
    task.folder.reset();
    task.done = true;
}

void ReadAhead::announce() {
    finished_.fetch_add(1, std::memory_order_release);
    finished_.notify_one();
}

void ReadAhead::waitFor(const ReadTask& task) {
    awaited_ = &task;
    while (true) {
        uint32_t seen = finished_.load(std::memory_order_acquire);
        if (task.done) break;
        finished_.wait(seen, std::memory_order_acquire);
    }
    awaited_ = nullptr;
}

std::vector<ReadAhead::TaskRef> ReadAhead::nextTasks() {
    std::lock_guard walking(walkMutex_);
    std::vector<TaskRef> tasks;
    while (tasks.size() < batchSize) {
        Ref<FolderItem> file = nextFile();
        if (file == nullptr) break;
        if (!passesExtensions(file->Name(), extensions_)) continue;
        tasks.push_back(taskOf(*file));
    }
    std::unique_lock guard(mutex_);
    if (order_.size() >= maxFilesAhead)
        changed_.wait(guard, [this] { return order_.size() < resumeBelow || cancelled(); });
    walkEnded_ = walkEnded_ || tasks.empty();
    order_.insert(order_.end(), tasks.begin(), tasks.end());
    changed_.notify_all();
    return tasks;
}

Ref<FolderItem> ReadAhead::nextFile() {
    while (!cancelled()) {
        try {
            return walk_.next();
        } catch (const UnreadableException&) {
            continue;
        }
    }
    return nullptr;
}

ReadAhead::TaskRef ReadAhead::taskOf(const FolderItem& file) {
    auto task = std::make_shared<ReadTask>();
    task->path = file.AbsolutePath();
    task->listedAsFile = file.listedAsFile();
    size_t folderLength = task->path.rfind('/');
    if (folder_ == nullptr || task->path.compare(0, folderLength, folder_->path()) != 0)
        folder_ = std::make_shared<OpenFolder>(parentPath(task->path));
    task->folder = folder_;
    return task;
}

ReadAhead::TaskRef ReadAhead::popUpTo(const std::string& path) {
    auto at = std::find_if(order_.begin(), order_.end(),
                           [&](const TaskRef& task) { return task->path == path; });
    if (at == order_.end()) return nullptr;
    TaskRef task = *at;
    bool above = order_.size() >= resumeBelow;
    order_.erase(order_.begin(), at + 1);
    if (above && order_.size() < resumeBelow) changed_.notify_all();
    return task;
}

ReadAhead::TaskRef ReadAhead::popReady(const std::string& path) {
    std::lock_guard guard(mutex_);
    return order_.empty() ? nullptr : popUpTo(path);
}

std::optional<FoundNames> ReadAhead::take(const std::string& path) {
    TaskRef task = popReady(path);
    if (task == nullptr) {
        withoutBaton([&] {
            std::unique_lock guard(mutex_);
            changed_.wait(guard, [this] { return !order_.empty() || walkEnded_; });
            task = popUpTo(path);
        });
    }
    if (task == nullptr) return std::nullopt;
    if (!task->done.load(std::memory_order_acquire)) withoutBaton([&] { waitFor(*task); });
    if (task->error != 0) return std::nullopt;
    return FoundNames{table_, std::move(task->names)};
}

}  // namespace bracken
