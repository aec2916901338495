#include "tools/bracken-scan/progress.h"

#include <unistd.h>

#include <cstdio>

#include "tools/bracken-scan/interrupt.h"
#include "tools/bracken-scan/source_walk.h"

namespace bracken::cli {

namespace {

constexpr std::chrono::milliseconds frame{100};
constexpr const char* clearLine = "\r\033[K";

}  // namespace

Progress::Progress(const Options& options, const SourceFilter& filter, const Findings& findings)
    : findings_(findings) {
    if (isatty(STDERR_FILENO) == 0) return;
    writeOnInterrupt(clearLine);
    thread_ = std::thread([this, &options, &filter] { run(options, filter); });
}

Progress::~Progress() {
    if (!thread_.joinable()) return;
    {
        std::lock_guard guard(mutex_);
        ended_ = true;
    }
    changed_.notify_one();
    thread_.join();
    std::fputs(clearLine, stderr);
    writeOnInterrupt(nullptr);
}

void Progress::run(const Options& options, const SourceFilter& filter) {
    SourceWalk walk(options.folders, filter);
    uint64_t counted = 0;
    auto shown = std::chrono::steady_clock::now();
    while (goesOn() && walk.next()) {
        counted++;
        if (std::chrono::steady_clock::now() - shown < frame) continue;
        show(0);
        shown = std::chrono::steady_clock::now();
    }
    while (goesOnAfterFrame()) show(counted);
}

bool Progress::goesOn() {
    std::lock_guard guard(mutex_);
    return !ended_;
}

bool Progress::goesOnAfterFrame() {
    std::unique_lock guard(mutex_);
    return !changed_.wait_for(guard, frame, [this] { return ended_; });
}

void Progress::show(uint64_t total) const {
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start_;
    const double rate = static_cast<double>(findings_.bytes()) / 1e6 / time.count();
    const uint64_t files = findings_.files();
    std::string share;
    if (total > 0)
        share = " of " + std::to_string(total) + ", " + std::to_string(files * 100 / total) + " %";
    std::fprintf(stderr, "%s%llu files%s, %.0f MB/s", clearLine,
                 static_cast<unsigned long long>(files), share.c_str(), rate);
    std::fflush(stderr);
}

}  // namespace bracken::cli
