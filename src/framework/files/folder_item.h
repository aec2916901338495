#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "framework/files/binary_stream.h"
#include "framework/files/entered_folders.h"
#include "framework/files/text_input_stream.h"
#include "framework/files/text_output_stream.h"
#include "framework/ref.h"

namespace bracken {

class FolderListing;

// A path, existing or not. Paths are absolute POSIX paths. Links are followed; Name and
// AbsolutePath are the entry's own, never the target's. The disk is asked at each call, but for the
// listing, and for an entry's being a folder, which its listing said. An item is for one thread at
// a time; different items don't touch each other.
//
// Items that are reached from one item by Item, at any depth, make a walk: it enters real folders
// always, and a folder by a link only if it has not entered that one yet. Another walk begins with
// an item of its own.
class FolderItem {
  public:
    // Slashes at the path's end are dropped.
    explicit FolderItem(std::string path);
    ~FolderItem();

    // Number of entries of a folder; 0 for anything else, and for a link to a folder that the walk
    // had entered before its first count. UnreadableException for a folder that can't be listed to
    // its end. The listing is cached and revalidated at each call by one stat: known entries keep
    // their numbers for the life of this item and count on when they vanish, new ones go to the
    // end. Only names are kept, for as long as this item lives, and nothing of the entries' own
    // entries.
    int Count();
    // The i-th entry, counted from 1, in byte order of names, hidden ones included, dangling links
    // left out. Nil outside the range and for an entry that had vanished at the latest Count.
    // UnreadableException for one whose type, or that of a link's target, can't be asked. A new
    // item at each call.
    Ref<FolderItem> Item(int i);

    bool Exists() const;
    // Whether the listing called it a regular file, so that it can be opened without a look.
    bool listedAsFile() const { return file_; }
    bool Directory() const;
    // "/" for the root.
    std::string Name() const;
    // Without a slash at its end, save the root's. GetFolderItem is its inverse.
    const std::string& AbsolutePath() const;
    // Bytes of a regular file; 0 for anything else.
    uint64_t Length() const;
    // Nil for the root.
    Ref<FolderItem> Parent() const;
    // The item of that name in this folder, existing or not.
    Ref<FolderItem> Child(const std::string& name) const;
    // The same entry as an item of its own, for another thread or another walk, which begins where
    // the walk that gave this one stands now.
    Ref<FolderItem> copy() const;
    // The path quoted for a POSIX shell.
    std::string ShellPath() const;

    // Nil if it can't be opened; the nil reference then names the path and the system's reason. A
    // text file is read whole here, without giving up the baton, and is nil if that breaks off.
    // Sockets, pipes and devices open as empty and never block.
    Ref<BinaryStream> OpenAsBinaryFile(bool write) const;
    Ref<TextInputStream> OpenAsTextFile() const;
    // A stream that replaces the file when it is closed, see TextOutputStream. Nil, with the reason
    // as above, if the file can't be created or may not be written by the user. A file directly in
    // the preferences folder gets mode 0600, whatever it had.
    Ref<TextOutputStream> CreateTextFile() const;

    // Removes the temporary files that programs killed while they wrote this file have left in its
    // folder; those of programs that still write stay. Every CreateTextFile and CopyFileTo does so
    // too. A failure is silent.
    void removeLeftOvers() const;

    // Removes a file, a link (not its target) or an empty folder; a failure is silent.
    void Delete() const;
    // Copies the file's bytes and mode to `destination`, a file's path or, if it is an existing
    // folder, into that folder under this name. A failure is silent; an existing target then stands
    // as it was, and keeps its mode in any case.
    void CopyFileTo(const Ref<FolderItem>& destination) const;
    // Makes the folder with mode 0700; a failure is silent.
    void CreateAsFolder() const;

  private:
    FolderListing& listing();
    // Asks for the target of what was listed as a link; false if there is none any more.
    bool followLink();

    std::string path_;
    std::optional<bool> directory_;
    bool file_ = false;
    // Where the path is a link's, the folder that it led to.
    std::optional<FolderIdentity> link_;
    // Null where a walk begins.
    std::shared_ptr<EnteredFolders> entered_;
    std::unique_ptr<FolderListing> listing_;
};

// An item for an absolute path, existing or not; nil for an empty or a relative path and for one
// with a NUL byte. The second argument names the path's form and is always 0, the form that
// AbsolutePath gives.
Ref<FolderItem> GetFolderItem(const std::string& path, int pathForm);

}  // namespace bracken
