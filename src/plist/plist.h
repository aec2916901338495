#pragma once

#include <string>
#include <vector>

#include "framework/files/folder_item.h"
#include "framework/ref.h"
#include "plist/plist_dict.h"

namespace bracken {

// One property-list file in memory: the tree, the head lines of the file, the place to save to and
// the error state that all nodes report to. A file in binary form is read through a text copy
// beside it, named with " temp" behind the file's name, made by the command plutil, which also
// turns the copy back when saving.
//
// The first operation of the tree clears what loading left in the error state, as a rule. Holding
// the baton; loading and saving never give it up.
class plist {
  public:
    // Loads, see Load.
    plist(const Ref<FolderItem>& file, const Ref<FolderItem>& fallback);
    virtual ~plist() = default;
    plist(const plist&) = delete;
    plist& operator=(const plist&) = delete;

    // Always a dictionary.
    Ref<plistDict> root;
    // Whether the latest operation that reports has failed, and how.
    bool error = false;
    std::string errorMessage;
    // Where Save writes: the file, or the text copy of a binary one.
    Ref<FolderItem> savePath;
    // The lines written ahead of the tree, from element 1 on; the last one is "<dict>".
    std::vector<std::string> headers{""};
    bool isBinary = false;
    // The binary file itself.
    Ref<FolderItem> org;
    // Whether each error of a node also shows a message box.
    bool debug = false;

    // Saves, and with `cleanup` removes the text copy of a binary file. A file that can't be
    // written is an error; a failure of plutil goes unseen.
    virtual void Save(bool cleanup);
    // Reads `file`, or `fallback`, which may be nil, when there is no such file; saving goes to
    // `file` in both cases. With neither there the tree is empty, and an error stands.
    // NilObjectException for no file or one that can't be opened.
    virtual void Load(const Ref<FolderItem>& file, const Ref<FolderItem>& fallback);
    // Removes the text copy of a binary file.
    virtual void Cleanup();
    virtual void Save();

  private:
    void startNew(const FolderItem& missing);
    // The stream over the text of `source` from its first line on; `line` becomes that line.
    Ref<TextInputStream> openText(const Ref<FolderItem>& source, std::string& line);
    Ref<TextInputStream> openCopy(const Ref<FolderItem>& binary);
    void read(const Ref<TextInputStream>& stream, std::string line);
    void writeText(const Ref<TextOutputStream>& stream) const;
    void replaceBinary();
};

}  // namespace bracken
