#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

#include "scan/group_filter.h"

namespace bracken {

// Chooses for each name the group of four bytes that stands for it: one that is rare in source
// text, adds little to what the filter lets through, and that few other names share.
class GroupChoice {
  public:
    // Names are to be added to `filter` as they are chosen.
    explicit GroupChoice(const GroupFilter& filter) : filter_(filter) {}

    // The place in `name`, of three bytes or more, where its group begins.
    size_t choose(const std::string& name);

  private:
    double cost(const std::string& name, size_t offset) const;

    const GroupFilter& filter_;
    // How many names each group stands for.
    std::unordered_map<std::string, int> load_;
};

}  // namespace bracken
