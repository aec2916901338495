#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "framework/files/entered_folders.h"
#include "framework/files/streams.h"
#include "framework/ref.h"

namespace bracken {

class FolderListing;

// An absolute POSIX path, existing or not.
// - Links are followed; Name and AbsolutePath are the entry's own, never the target's.
// - The disk is asked at each call, except for the listing, and for whether an entry is a folder,
//   which its listing says.
// - An item is for one thread at a time; different items share nothing that needs a lock.
// - Items that are reached from one item by Item, at any depth, make a walk: it enters real folders
//   always, and a folder by a link only if it has not entered that one yet. Another walk begins
//   with an item of its own.
class FolderItem {
  public:
    // Drops slashes at the path's end.
    explicit FolderItem(std::string path);
    ~FolderItem();

    // Number of entries of a folder; 0 for anything else, and for a link to a folder that the walk
    // had entered before its first count.
    // - UnreadableException for a folder that can't be listed to its end.
    // - The listing is cached and revalidated at each call by one stat.
    // - Known entries keep their numbers for the life of this item and still count when they
    //   vanish; new ones go to the end.
    // - Only names are cached, for as long as this item lives, and nothing of the entries' own
    //   entries.
    int Count();
    // The i-th entry, counted from 1, in byte order of names, with hidden ones and without dangling
    // links, as a new item at each call. Nil outside the range and for an entry that had vanished
    // at the latest Count. UnreadableException for one whose type, or that of a link's target,
    // can't be asked.
    Ref<FolderItem> Item(int i);

    bool Exists() const;
    // Whether the listing called it a regular file, so that it can be opened without asking for its
    // type.
    bool listedAsFile() const { return file_; }
    bool Directory() const;
    // "/" for the root.
    std::string Name() const;
    // Without a slash at its end, except the root's. GetFolderItem is its inverse.
    const std::string& AbsolutePath() const;
    // Bytes of a regular file; 0 for anything else.
    uint64_t Length() const;
    // Nil for the root.
    Ref<FolderItem> Parent() const;
    // The item of that name in this folder, existing or not.
    Ref<FolderItem> Child(const std::string& name) const;
    // The same entry as an item of its own, for another thread or another walk. That walk has
    // entered what this item's walk has entered until now.
    Ref<FolderItem> copy() const;
    // The path quoted for a POSIX shell.
    std::string ShellPath() const;

    // Nil if it can't be opened; the nil reference then names the path and the system's reason. A
    // text file is read whole here, without releasing the baton, and is nil if that fails midway.
    // Sockets, pipes and devices open as empty and never block.
    Ref<BinaryStream> OpenAsBinaryFile(bool write) const;
    Ref<TextInputStream> OpenAsTextFile() const;
    // A stream that replaces the file when it is closed, see TextOutputStream. Nil, with the reason
    // as above, if the file can't be created or may not be written by the user. A file directly in
    // the preferences folder gets mode 0600, whatever it had.
    Ref<TextOutputStream> CreateTextFile() const;

    // Removes temporary files from this file's folder that were left by programs killed while they
    // wrote; those of programs that still write stay. Every CreateTextFile and CopyFileTo does so
    // too. A failure is silent.
    void removeLeftOvers() const;

    // Removes a file, a link (not its target) or an empty folder; a failure is silent.
    void Delete() const;
    // Copies the file's bytes and mode to `destination`, a file's path or, if it is an existing
    // folder, into that folder under this name. A failure is silent; an existing target is then
    // unchanged, and keeps its mode in any case.
    void CopyFileTo(const Ref<FolderItem>& destination) const;
    // Makes the folder with mode 0700; a failure is silent.
    void CreateAsFolder() const;

  private:
    FolderListing& listing();
    // Asks for the target of what was listed as a link; false if it has vanished.
    bool followLink();

    std::string path_;
    std::optional<bool> directory_;
    bool file_ = false;
    // The folder that the path led to, if it is a link.
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
