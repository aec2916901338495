#include "tools/bracken-scan/findings.h"

#include <algorithm>
#include <numeric>
#include <tuple>
#include <utility>

namespace bracken::cli {

void Findings::addSearched(std::string path, const std::vector<uint32_t>& needles, int64_t bytes) {
    files_.fetch_add(1, std::memory_order_relaxed);
    bytes_.fetch_add(static_cast<uint64_t>(bytes), std::memory_order_relaxed);
    if (needles.empty()) return;
    std::lock_guard guard(mutex_);
    const auto number = static_cast<uint32_t>(paths_.size());
    paths_.push_back(std::move(path));
    for (const uint32_t needle : needles) filesOfNeedle_[needle].push_back(number);
}

void Findings::addUnreadable(Unreadable unreadable) {
    std::lock_guard guard(mutex_);
    unreadable_.push_back(std::move(unreadable));
}

void Findings::sort() {
    std::vector<uint32_t> order(paths_.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(),
              [&](uint32_t a, uint32_t b) { return paths_[a] < paths_[b]; });
    std::vector<uint32_t> places(paths_.size());
    std::vector<std::string> sorted(paths_.size());
    for (uint32_t place = 0; place < order.size(); place++) {
        places[order[place]] = place;
        sorted[place] = std::move(paths_[order[place]]);
    }
    paths_ = std::move(sorted);
    for (auto& files : filesOfNeedle_) {
        for (uint32_t& file : files) file = places[file];
        std::sort(files.begin(), files.end());
    }
    std::sort(unreadable_.begin(), unreadable_.end(), [](const auto& a, const auto& b) {
        return std::tie(a.path, a.reason) < std::tie(b.path, b.reason);
    });
}

}  // namespace bracken::cli
