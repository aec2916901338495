#pragma once

#include <ctime>

#include "program/results/result_recorder.h"

namespace bracken {

// The end of a loop over a folder's entries that is looked at anew at each entry. The folder itself
// is asked at the end, so that no entry which has appeared by then is missed, and else once in a
// tick of the system's clock: to ask at each entry would cost as much as half the reading.
class FolderCount {
  public:
    FolderCount(ResultRecorder& entry, FolderItem& folder) : entry_(entry), folder_(folder) {}

    // The number of entries, as far as the entry of number `next` has to know.
    int count(int next) {
        struct timespec now;
        clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
        bool sameTick = now.tv_sec == asked_.tv_sec && now.tv_nsec == asked_.tv_nsec;
        if (next <= known_ && sameTick) return known_;
        asked_ = now;
        known_ = entry_.count(folder_);
        return known_;
    }

  private:
    ResultRecorder& entry_;
    FolderItem& folder_;
    struct timespec asked_ = {};
    int known_ = 0;
};

}  // namespace bracken
