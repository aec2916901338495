#pragma once

#include <string_view>

#include "tools/bracken-scan/options.h"

namespace bracken::cli {

// Which entries below a FOLDER are left out.
class SourceFilter {
  public:
    explicit SourceFilter(const Options& options)
        : extensions_(options.extensions), excludes_(options.excludes) {}

    // `path` is that below the FOLDER. Of a file or a folder.
    bool excludes(std::string_view path) const;
    // Of a file: whether --exclude or --extensions keeps it out.
    bool keepsOut(std::string_view path) const;

  private:
    bool passesExtensions(std::string_view name) const;

    std::vector<std::string> extensions_;
    std::vector<std::string> excludes_;
};

}  // namespace bracken::cli
