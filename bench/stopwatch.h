#pragma once

#include <sys/resource.h>
#include <sys/time.h>

#include <chrono>
#include <thread>

namespace bracken::bench {

// Measures from its making on.
class Stopwatch {
  public:
    double milliseconds() const {
        return std::chrono::duration<double, std::milli>(Clock::now() - start_).count();
    }
    // Processor time of this process, in milliseconds.
    double processorMilliseconds() const { return processorTime() - processorStart_; }
    // The share of time that the machine's cores worked for this process, 0 to 1.
    double busy() const {
        return processorMilliseconds() / milliseconds() / std::thread::hardware_concurrency();
    }

  private:
    using Clock = std::chrono::steady_clock;

    static double processorTime() {
        struct rusage usage;
        getrusage(RUSAGE_SELF, &usage);
        auto of = [](const struct timeval& time) {
            return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
        };
        return of(usage.ru_utime) + of(usage.ru_stime);
    }

    const Clock::time_point start_ = Clock::now();
    const double processorStart_ = processorTime();
};

}  // namespace bracken::bench
