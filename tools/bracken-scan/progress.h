#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

#include "tools/bracken-scan/findings.h"
#include "tools/bracken-scan/options.h"

namespace bracken::cli {

// Shows on standard error how far the scan has come, if that is a terminal; how much there is to do
// it counts by a walk of its own meanwhile. Until it is destroyed.
class Progress {
  public:
    // All of them outlive it.
    Progress(const Options& options, const SourceFilter& filter, const Findings& findings);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

  private:
    void run(const Options& options, const SourceFilter& filter);
    bool goesOn();
    bool goesOnAfterFrame();
    // `total` is 0 while it is not known.
    void show(uint64_t total) const;

    const Findings& findings_;
    const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    std::mutex mutex_;
    std::condition_variable changed_;
    bool ended_ = false;
    std::thread thread_;
};

}  // namespace bracken::cli
