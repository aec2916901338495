#pragma once

#include "framework/files/folder_item.h"

namespace bracken {

// The user's standard places by the XDG base directories, made when missing with mode 0700; nil with
// no home folder at all.
struct SpecialFolder {
    // $XDG_CONFIG_HOME, else ~/.config.
    static Ref<FolderItem> Preferences();
    // $XDG_DATA_HOME, else ~/.local/share.
    static Ref<FolderItem> ApplicationData();
    // The desktop's documents folder (user-dirs.dirs), else the home folder.
    static Ref<FolderItem> Documents();
};

}  // namespace bracken
