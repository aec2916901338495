#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "framework/files/folder_item.h"
#include "framework/ref.h"
#include "plist/plist_dict.h"

namespace bracken {

// One property-list file in memory: the tree, the head lines of the file, the path to save to and
// the error state that all nodes report to. A binary file is read through a text copy next to it,
// whose name is the file's name and " temp". The command plutil makes the copy and converts it back
// when saving.
//
// As a rule the first operation on the tree clears the error that loading left. Callers hold the
// baton; loading and saving never release it.
//
// Where the operations are defined:
//   plist.cpp         Load, Save, Cleanup
//   plist_search.cpp  Find, FindNext, ClearSearch, ReadStructure
//   plist_dump.cpp    Dump
class plist {
  public:
    // Loads, see Load.
    plist(const Ref<FolderItem>& file, const Ref<FolderItem>& fallback);
    virtual ~plist() = default;
    plist(const plist&) = delete;
    plist& operator=(const plist&) = delete;

    // Always a dictionary.
    Ref<plistDict> root;
    // Whether the latest operation that reports errors has failed, and its message.
    bool error = false;
    std::string errorMessage;
    // Where Save writes: the file, or the text copy of a binary one.
    Ref<FolderItem> savePath;
    // The lines written before the tree, from element 1 on; the last one is "<dict>".
    std::vector<std::string> headers{""};
    bool isBinary = false;
    // The binary file itself.
    Ref<FolderItem> org;
    // Whether each error of a node also shows a message box.
    bool debug = false;
    // The latest hit of a search: its node, key, value and tag.
    Ref<plistDict> foundDict;
    std::string foundKey;
    std::string foundValue;
    std::string foundType;
    // Nothing here reads or writes these three.
    bool brk = false;
    bool findingNext = false;
    int32_t untitled = 0;
    // The text of the latest Find.
    std::string lastSearch;

    // Saves, and with `cleanup` removes the text copy of a binary file. A file that can't be
    // written sets the error; a failure of plutil is not noticed.
    virtual void Save(bool cleanup);
    // Reads `file`, or `fallback`, which may be nil, when there is no such file.
    // - Saving writes `file` in both cases.
    // - If neither exists the tree is empty and the error is set.
    // - NilObjectException for a nil file or one that can't be opened.
    virtual void Load(const Ref<FolderItem>& file, const Ref<FolderItem>& fallback);
    // Puts the document's lines on the clipboard, with search marks; see plistDict::Dump. Main
    // thread.
    virtual void Dump() const;
    // Removes the text copy of a binary file.
    virtual void Cleanup();
    virtual void Save();
    // Find the first value that contains the text, and the next one not found since.
    // - A value that is set again counts as not found.
    // - Every search moves the cursors of all nodes.
    // - FindNext with a text other than that of the latest Find returns the first hit each time.
    virtual bool Find(const std::string& text);
    virtual bool FindNext(const std::string& text);
    // Marks all values at and below the node as not found.
    virtual void ClearSearch(const Ref<plistDict>& node);

  protected:
    // Searches at and below the node. The kind is "valueSearch" or "keySearch", which compares the
    // keys of scalars.
    bool ReadStructure(const Ref<plistDict>& node, const std::string& text,
                       const std::string& kind);

  private:
    bool hit(const Ref<plistDict>& node, const std::string& key, const std::string& text,
             const std::string& kind);
    void startNew(const FolderItem& missing);
    // A stream over the text of `source`, at its start; `line` becomes the first line of `source`.
    Ref<TextInputStream> openText(const Ref<FolderItem>& source, std::string& line);
    Ref<TextInputStream> openCopy(const Ref<FolderItem>& binary);
    void read(const Ref<TextInputStream>& stream, std::string line);
    void writeText(const Ref<TextOutputStream>& stream) const;
    void replaceBinary();
};

}  // namespace bracken
