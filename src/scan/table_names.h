#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "scan/matcher.h"

namespace bracken {

// Distinct table names, numbered from 0 in the order of their first occurrence, with a matcher for
// them. Immutable.
class TableNames {
  public:
    // Names that are equal but for letter case count as one.
    explicit TableNames(const std::vector<std::string_view>& names,
                        HitRule rule = HitRule::anywhere);

    const Matcher& matcher() const { return *matcher_; }
    // The name's number, without regard to case; -1 if it is none of them.
    int64_t numberOf(std::string_view name) const;

  private:
    // In lower case.
    std::unordered_map<std::string, uint32_t> numbers_;
    std::unique_ptr<Matcher> matcher_;
};

}  // namespace bracken
