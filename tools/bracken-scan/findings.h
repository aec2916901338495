#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

#include "tools/bracken-scan/source_walk.h"

namespace bracken::cli {

// What the threads of a scan have found together.
class Findings {
  public:
    explicit Findings(size_t needles) : filesOfNeedle_(needles) {}

    // Any thread.
    void addSearched(std::string path, const std::vector<uint32_t>& needles, int64_t bytes);
    void addUnreadable(Unreadable unreadable);
    uint64_t files() const { return files_.load(std::memory_order_relaxed); }
    uint64_t bytes() const { return bytes_.load(std::memory_order_relaxed); }

    // Once all is there: brings it into an order that does not depend on the threads.
    void sort();
    // From then on. Paths that a needle was found in, in byte order, and their numbers for each.
    const std::vector<std::string>& paths() const { return paths_; }
    const std::vector<uint32_t>& filesOf(uint32_t needle) const { return filesOfNeedle_[needle]; }
    // By bytes.
    const std::vector<Unreadable>& unreadable() const { return unreadable_; }

  private:
    std::atomic<uint64_t> files_{0};
    std::atomic<uint64_t> bytes_{0};
    // Guards what follows.
    std::mutex mutex_;
    std::vector<std::string> paths_;
    std::vector<std::vector<uint32_t>> filesOfNeedle_;
    std::vector<Unreadable> unreadable_;
};

}  // namespace bracken::cli
