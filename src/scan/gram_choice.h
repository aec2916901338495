#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

#include "scan/ngram_filter.h"

namespace bracken {

// Chooses for each name the 4-gram that represents it: one that is rare in source text, adds little
// to what the filter lets through, and that few other names share.
class GramChoice {
  public:
    // Names are to be added to `filter` as they are chosen.
    explicit GramChoice(const NgramFilter& filter) : filter_(filter) {}

    // The offset in `name`, of three bytes or more, at which its gram begins.
    size_t choose(const std::string& name);

  private:
    double cost(const std::string& name, size_t offset) const;

    const NgramFilter& filter_;
    // How many names each gram represents.
    std::unordered_map<std::string, int> load_;
};

}  // namespace bracken
