#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "scan/open_folder.h"
#include "scan/tree_walk.h"
#include "tools/bracken-scan/source_filter.h"

namespace bracken::cli {

// Paths as the answer shows them.
struct Unreadable {
    std::string path;
    std::string reason;
};

// A file to search.
struct Source {
    // As the answer shows it.
    std::string path;
    std::string absolutePath;
    bool listedAsFile = false;
    // The folder that holds it.
    std::shared_ptr<const OpenFolder> folder;
};

// The files below all FOLDERs, one after the other. For one thread at a time.
class SourceWalk {
  public:
    // Both outlive it.
    SourceWalk(const std::vector<std::string>& folders, const SourceFilter& filter);

    // Nothing at the end.
    std::optional<Source> next();

    // So far: files kept out, and what could not be listed.
    uint64_t filtered() const { return filtered_; }
    const std::vector<Unreadable>& unreadable() const { return unreadable_; }

  private:
    void enterFolder();
    std::error_code enterFolder(const std::string& given);
    Ref<FolderItem> nextFile();
    Source sourceOf(const FolderItem& file, std::string_view below);
    // The path below the FOLDER; "" for the FOLDER itself.
    std::string_view below(const std::string& absolutePath) const;
    std::string shown(std::string_view below) const;

    const std::vector<std::string>& folders_;
    const SourceFilter& filter_;
    // How many FOLDERs have been begun; the latest of them by its absolute path.
    size_t begun_ = 0;
    std::string root_;
    std::optional<TreeWalk> walk_;
    // That of the latest file.
    std::shared_ptr<const OpenFolder> holder_;
    uint64_t filtered_ = 0;
    std::vector<Unreadable> unreadable_;
};

}  // namespace bracken::cli
