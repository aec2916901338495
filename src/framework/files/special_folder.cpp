#include "framework/files/special_folder.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>

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
    if (mkdir(path.c_str(), 0700) == 0 || errno != ENOENT) return;
    makeFolders(parentPath(path));
    mkdir(path.c_str(), 0700);
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

// As the desktop has noted it, "" if it has not.
std::string notedDocuments() {
    static const std::string start = "XDG_DOCUMENTS_DIR=\"";
    static const std::string underHome = "$HOME/";
    const auto notes = make<FolderItem>(joinPath(preferencesPath(), "user-dirs.dirs"));
    if (!notes->Exists()) return "";
    const Ref<TextInputStream> lines = notes->OpenAsTextFile();
    while (lines && !lines->EOF_()) {
        const std::string line = lines->ReadLine(nullptr);
        if (line.compare(0, start.size(), start) != 0) continue;
        std::string value = unquoted(line, start.size());
        if (value.compare(0, underHome.size(), underHome) != 0) return value;
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
    const Ref<FolderItem> noted = GetFolderItem(notedDocuments(), 0);
    return noted && noted->Directory() ? noted : make<FolderItem>(home());
}

bool SpecialFolder::keepsPrivate(const std::string& path) {
    const std::string preferences = preferencesPath();
    return !preferences.empty() && parentPath(path) == preferences;
}

}  // namespace bracken
