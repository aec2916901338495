#pragma once

#include "framework/files/folder_item.h"

namespace bracken {

// The user's standard folders, from HOME and the XDG base directories, made when missing, for the
// owner alone; nil with no home folder at all. Variables that hold no absolute path count as unset.
struct SpecialFolder {
    // $XDG_CONFIG_HOME, else ~/.config.
    static Ref<FolderItem> Preferences();
    // $XDG_DATA_HOME, else ~/.local/share.
    static Ref<FolderItem> ApplicationData();
    // The desktop's documents folder (user-dirs.dirs) if there is one, else the home folder.
    static Ref<FolderItem> Documents();
    // Whether the path is directly in the preferences folder, where the files hold passwords.
    static bool keepsPrivate(const std::string& path);
};

}  // namespace bracken
