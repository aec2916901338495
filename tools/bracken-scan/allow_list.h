#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace bracken::cli {

// The tables that may be unused, by names and globs without regard to case.
class AllowList {
  public:
    // An empty one without a file; Failure if the file can't be read.
    explicit AllowList(const std::optional<std::string>& file);

    bool has(std::string_view table) const;

  private:
    // In lower case.
    std::unordered_set<std::string> names_;
    std::vector<std::string> globs_;
};

}  // namespace bracken::cli
