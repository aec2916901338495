#include "scan/group_choice.h"

#include <algorithm>
#include <array>

namespace bracken {

namespace {

// How often each class of bytes stands in source text, in thousandths: counted over a large web
// application with its translations.
constexpr std::array<double, GroupFilter::classes> frequency = {
    137, 58, 44, 29, 31, 63, 14, 25, 19, 64, 27, 11, 45, 32, 42, 39,
    45,  20, 39, 34, 45, 24, 10, 12, 14, 13, 17, 13, 9,  12, 8,  6};

double share(char byte) {
    return frequency[GroupFilter::classOf(byte)] / 1000;
}

// Weights found by measuring: what a pair let through costs against a comparison that fails.
constexpr double newPairWeight = 0.02;
// Letters do not follow each other by chance: no group is rarer than this.
constexpr double rarest = 2e-6;

}  // namespace

double GroupChoice::cost(const std::string& name, size_t offset) const {
    std::string group = name.substr(offset, 4);
    double pairs = 0;
    double all = 1;
    for (size_t place = 0; place < group.size(); place++) {
        all *= share(group[place]);
        if (place + 1 == group.size()) break;
        int first = GroupFilter::classOf(group[place]);
        int second = GroupFilter::classOf(group[place + 1]);
        if (filter_.isNewPair(static_cast<int>(place), first, second))
            pairs += share(group[place]) * share(group[place + 1]);
    }
    auto found = load_.find(group);
    int load = found == load_.end() ? 0 : found->second;
    return newPairWeight * pairs + (load + 1) * std::max(all, rarest);
}

size_t GroupChoice::choose(const std::string& name) {
    size_t best = 0;
    double bestCost = cost(name, 0);
    for (size_t offset = 1; offset + 4 <= name.size(); offset++) {
        double candidate = cost(name, offset);
        if (candidate >= bestCost) continue;
        bestCost = candidate;
        best = offset;
    }
    load_[name.substr(best, 4)]++;
    return best;
}

}  // namespace bracken
