#pragma once

#include <cstdint>
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
//
// Loading and saving stand in plist.cpp, the searches in plist_search.cpp, Dump in plist_dump.cpp.
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
    // written is an error; a failure of plutil goes unseen.
    virtual void Save(bool cleanup);
    // Reads `file`, or `fallback`, which may be nil, when there is no such file; saving goes to
    // `file` in both cases. With neither there the tree is empty, and an error stands.
    // NilObjectException for no file or one that can't be opened.
    virtual void Load(const Ref<FolderItem>& file, const Ref<FolderItem>& fallback);
    // Puts the document's lines on the clipboard, with search marks; see plistDict::Dump. Main
    // thread.
    virtual void Dump() const;
    // Removes the text copy of a binary file.
    virtual void Cleanup();
    virtual void Save();
    // Find the first value that holds the text, and the next one that has not been found since; a
    // value set anew counts as not found. Every search moves the cursors of all nodes. FindNext
    // with another text than the latest Find gives the first hit each time.
    virtual bool Find(const std::string& text);
    virtual bool FindNext(const std::string& text);
    // Marks all values at and below the node as not found.
    virtual void ClearSearch(const Ref<plistDict>& node);

  protected:
    // Searches at and below the node. The kind is "valueSearch" or "keySearch", which looks at the
    // keys of scalars.
    bool ReadStructure(const Ref<plistDict>& node, const std::string& text,
                       const std::string& kind);

  private:
    bool hit(const Ref<plistDict>& node, const std::string& key, const std::string& text,
             const std::string& kind);
    void startNew(const FolderItem& missing);
    // The stream over the text of `source` from its first line on; `line` becomes that line.
    Ref<TextInputStream> openText(const Ref<FolderItem>& source, std::string& line);
    Ref<TextInputStream> openCopy(const Ref<FolderItem>& binary);
    void read(const Ref<TextInputStream>& stream, std::string line);
    void writeText(const Ref<TextOutputStream>& stream) const;
    void replaceBinary();
};

}  // namespace bracken
