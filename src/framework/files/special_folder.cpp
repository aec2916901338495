#include "framework/files/special_folder.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>

#include "framework/files/file_calls.h"
#include "framework/files/paths.h"

namespace bracken {

namespace {

// The variable's absolute path, "" if it holds none.
std::string pathFrom(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && value[0] == '/' ? trimmedPath(value) : "";
}

std::string home() {
    return pathFrom("HOME");
}

std::string basePath(const char* variable, const char* underHome) {
    std::string set = pathFrom(variable);
    if (!set.empty() || home().empty()) return set;
    return joinPath(home(), underHome);
}

std::string preferencesPath() {
    return basePath("XDG_CONFIG_HOME", ".config");
}

void makeFolders(const std::string& path) {
    if (mkdir(path.c_str(), privateFolderMode) == 0 || errno != ENOENT) return;
    makeFolders(parentPath(path));
    mkdir(path.c_str(), privateFolderMode);
}

Ref<FolderItem> madeFolder(const std::string& path) {
    if (path.empty()) return Ref<FolderItem>::nilBecause("There is no home folder.");
    makeFolders(path);
    return make<FolderItem>(path);
}

// The value of a line NAME="value" in shell quoting.
std::string unquoted(const std::string& line, size_t at) {
    std::string value;
    for (; at < line.size() && line[at] != '"'; ++at) {
        if (line[at] == '\\') ++at;
        if (at < line.size()) value += line[at];
    }
    return value;
}

// The path in the desktop's user-dirs.dirs, "" for none.
std::string configuredDocuments() {
    static const std::string start = "XDG_DOCUMENTS_DIR=\"";
    static const std::string underHome = "$HOME/";
    auto file = make<FolderItem>(joinPath(preferencesPath(), "user-dirs.dirs"));
    if (!file->Exists()) return "";
    Ref<TextInputStream> lines = file->OpenAsTextFile();
    while (lines && !lines->EOF_()) {
        std::string line = lines->ReadLine(nullptr);
        if (!line.starts_with(start)) continue;
        std::string value = unquoted(line, start.size());
        if (!value.starts_with(underHome)) return value;
        return joinPath(home(), value.substr(underHome.size()));
    }
    return "";
}

}  // namespace

Ref<FolderItem> SpecialFolder::Preferences() {
    return madeFolder(preferencesPath());
}

Ref<FolderItem> SpecialFolder::ApplicationData() {
    return madeFolder(basePath("XDG_DATA_HOME", ".local/share"));
}

Ref<FolderItem> SpecialFolder::Documents() {
    if (home().empty()) return madeFolder("");
    Ref<FolderItem> configured = GetFolderItem(configuredDocuments(), 0);
    return configured && configured->Directory() ? configured : make<FolderItem>(home());
}

bool SpecialFolder::keepsPrivate(const std::string& path) {
    std::string preferences = preferencesPath();
    return !preferences.empty() && parentPath(path) == preferences;
}

}  // namespace bracken
