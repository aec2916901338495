#include "tools/bracken-scan/scan.h"

#include <algorithm>
#include <future>
#include <mutex>
#include <system_error>
#include <utility>

#include "scan/file_search.h"

namespace bracken::cli {

namespace {

// Files taken off the walk at a time, so that the threads seldom meet.
constexpr size_t batch = 16;
// More bring nothing on any machine, and each takes its memory.
constexpr unsigned maxThreads = 256;

class Scan {
  public:
    Scan(SourceWalk& walk, const Needles& needles, Findings& findings)
        : walk_(walk), needles_(needles), findings_(findings) {}

    void work() {
        FileSearch search(Extent::whole);
        Matcher::Hits hits;
        for (auto sources = nextSources(); !sources.empty(); sources = nextSources())
            for (Source& source : sources) perform(source, search, hits);
    }

  private:
    std::vector<Source> nextSources() {
        std::lock_guard guard(mutex_);
        std::vector<Source> sources;
        while (sources.size() < batch) {
            auto source = walk_.next();
            if (!source) break;
            sources.push_back(std::move(*source));
        }
        return sources;
    }

    void perform(Source& source, FileSearch& search, Matcher::Hits& hits) {
        const Matcher& matcher = needles_.matcher();
        hits.clear(matcher.nameCount());
        const int error = search.search(
            *source.folder, source.absolutePath, source.listedAsFile, matcher, [] { return false; },
            hits);
        source.folder.reset();
        if (error == 0)
            findings_.addSearched(std::move(source.path), hits.names(), search.bytes());
        else
            findings_.addUnreadable({std::move(source.path), reason(error)});
    }

    static std::string reason(int error) {
        return error == FileSearch::shrank ? "It became shorter while it was read"
                                           : std::generic_category().message(error);
    }

    // Guards the walk.
    std::mutex mutex_;
    SourceWalk& walk_;
    const Needles& needles_;
    Findings& findings_;
};

}  // namespace

void scan(SourceWalk& walk, const Needles& needles, unsigned threads, Findings& findings) {
    Scan scan(walk, needles, findings);
    // What one of them throws is thrown here too, once all have ended.
    std::vector<std::future<void>> others;
    try {
        while (others.size() + 1 < std::min(threads, maxThreads))
            others.push_back(std::async(std::launch::async, [&] { scan.work(); }));
    } catch (const std::system_error&) {
        // This thread does what they don't.
    }
    scan.work();
    for (auto& other : others) other.get();
    for (const Unreadable& unreadable : walk.unreadable()) findings.addUnreadable(unreadable);
    findings.sort();
}

}  // namespace bracken::cli
