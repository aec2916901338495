#include "tools/bracken-scan/source_walk.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "framework/files/paths.h"
#include "framework/files/unreadable.h"

namespace bracken::cli {

SourceWalk::SourceWalk(const std::vector<std::string>& folders, const SourceFilter& filter)
    : folders_(folders), filter_(filter) {}

std::optional<Source> SourceWalk::next() {
    while (walk_ || begun_ < folders_.size()) {
        if (!walk_) {
            enterFolder();
            continue;
        }
        const Ref<FolderItem> file = nextFile();
        if (file == nullptr) continue;
        const std::string_view path = below(file->AbsolutePath());
        if (!filter_.keepsOut(path)) return sourceOf(*file, path);
        filtered_++;
    }
    return std::nullopt;
}

void SourceWalk::enterFolder() {
    const std::string& given = folders_[begun_++];
    const std::error_code error = enterFolder(given);
    if (error) unreadable_.push_back({given, error.message()});
}

std::error_code SourceWalk::enterFolder(const std::string& given) {
    struct stat status;
    if (stat(given.c_str(), &status) != 0) return {errno, std::generic_category()};
    if (!S_ISDIR(status.st_mode)) return std::make_error_code(std::errc::not_a_directory);
    std::error_code error;
    const std::string path = std::filesystem::absolute(given, error);
    // The working folder may be gone.
    if (error) return error;
    const auto folder = make<FolderItem>(path);
    root_ = folder->AbsolutePath();
    walk_.emplace(folder, [this](const FolderItem& item) {
        return !filter_.excludes(below(item.AbsolutePath()));
    });
    return {};
}

// Nil where something can't be seen, and at the FOLDER's end, where walk_ goes.
Ref<FolderItem> SourceWalk::nextFile() {
    try {
        Ref<FolderItem> file = walk_->next();
        if (file == nullptr) walk_.reset();
        return file;
    } catch (const UnreadableException& error) {
        const std::string_view path = below(error.path());
        if (path.empty() || !filter_.excludes(path))
            unreadable_.push_back({shown(path), error.reason()});
        return nullptr;
    }
}

Source SourceWalk::sourceOf(const FolderItem& file, std::string_view below) {
    const std::string& path = file.AbsolutePath();
    const size_t folderLength = path.rfind('/');
    if (holder_ == nullptr || path.compare(0, folderLength, holder_->path()) != 0)
        holder_ = std::make_shared<OpenFolder>(parentPath(path));
    return {shown(below), path, file.listedAsFile(), holder_};
}

std::string_view SourceWalk::below(const std::string& absolutePath) const {
    const size_t length = root_.size() + (root_.ends_with('/') ? 0 : 1);
    return std::string_view(absolutePath).substr(std::min(length, absolutePath.size()));
}

std::string SourceWalk::shown(std::string_view below) const {
    const std::string& folder = folders_[begun_ - 1];
    if (below.empty()) return folder;
    return folders_.size() > 1 ? joinPath(trimmedPath(folder), below) : std::string(below);
}

}  // namespace bracken::cli
