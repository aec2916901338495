#include "scan/gram_choice.h"

#include <algorithm>
#include <array>

namespace bracken {

namespace {

// Frequency of each symbol in source text, in thousandths: counted over a large web application
// with its translations.
constexpr std::array<double, NgramFilter::symbols> frequency = {
    137, 58, 44, 29, 31, 63, 14, 25, 19, 64, 27, 11, 45, 32, 42, 39,
    45,  20, 39, 34, 45, 24, 10, 12, 14, 13, 17, 13, 9,  12, 8,  6};

double share(char byte) {
    return frequency[NgramFilter::symbolOf(byte)] / 1000;
}

// Measured: the cost of a new pair let through, where a comparison that fails costs 1.
constexpr double newPairWeight = 0.02;
// Letters do not follow each other by chance: no gram is rarer than this.
constexpr double rarest = 2e-6;

}  // namespace

double GramChoice::cost(const std::string& name, size_t offset) const {
    std::string gram = name.substr(offset, 4);
    double pairs = 0;
    double all = 1;
    for (size_t place = 0; place < gram.size(); place++) {
        all *= share(gram[place]);
        if (place + 1 == gram.size()) break;
        int first = NgramFilter::symbolOf(gram[place]);
        int second = NgramFilter::symbolOf(gram[place + 1]);
        if (filter_.isNewPair(static_cast<int>(place), first, second))
            pairs += share(gram[place]) * share(gram[place + 1]);
    }
    auto found = load_.find(gram);
    int load = found == load_.end() ? 0 : found->second;
    return newPairWeight * pairs + (load + 1) * std::max(all, rarest);
}

size_t GramChoice::choose(const std::string& name) {
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
