#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "scan/table_names.h"

namespace bracken::cli {

// What to look for so as to find the tables: their names, and what follows --strip-prefix in them.
class Needles {
  public:
    Needles(const std::vector<std::string>& tables, std::string prefix, bool wholeNames);

    const Matcher& matcher() const { return names_.matcher(); }
    // The matcher's numbers of what stands for the table; often the same twice.
    std::array<uint32_t, 2> of(const std::string& table) const;

  private:
    std::string prefix_;
    TableNames names_;
};

}  // namespace bracken::cli
