#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "framework/files/binary_stream.h"
#include "framework/files/text_input_stream.h"
#include "framework/files/text_output_stream.h"
#include "framework/ref.h"

namespace bracken {

// A path, existing or not, with cached facts about what lies there. Paths are absolute POSIX paths.
// Links are followed; Name and AbsolutePath are the entry's own, never the target's.
class FolderItem : public std::enable_shared_from_this<FolderItem> {
  public:
    explicit FolderItem(std::string path);
    ~FolderItem();

    // Number of entries of a folder; 0 for anything else, for one that can't be listed, and for a
    // link to a folder on the chain of folders that led here. The listing is cached and revalidated
    // cheaply at each call: known entries keep their numbers for the life of this item, new ones go
    // to the end.
    int Count();
    // The i-th entry, counted from 1, in byte order of names, hidden ones included, dangling links
    // left out. Nil outside the range and for an entry that has vanished.
    Ref<FolderItem> Item(int i);

    bool Exists() const;
    bool Directory() const;
    std::string Name() const;
    // Without a slash at its end, save the root's. GetFolderItem is its inverse.
    std::string AbsolutePath() const;
    // Bytes of a regular file; 0 for anything else.
    uint64_t Length() const;
    // Nil for the root.
    Ref<FolderItem> Parent() const;
    // The item of that name in this folder, existing or not.
    Ref<FolderItem> Child(const std::string& name) const;
    // The path quoted for a POSIX shell.
    std::string ShellPath() const;

    // Nil if it can't be opened; the nil reference then names the path and the system's reason.
    // Sockets, pipes and devices open as empty and never block.
    Ref<BinaryStream> OpenAsBinaryFile(bool write) const;
    Ref<TextInputStream> OpenAsTextFile() const;
    // A stream that replaces the file when it is closed, see TextOutputStream. Nil if the file can't
    // be created or may not be written by the user.
    Ref<TextOutputStream> CreateTextFile() const;

    void Delete() const;
    // Copies the file's bytes to `destination`, a file's path or, if it is an existing folder, into
    // that folder under this name. A failure is silent; an existing target then stands.
    void CopyFileTo(const Ref<FolderItem>& destination) const;
    // Makes the folder with mode 0700; a failure is silent.
    void CreateAsFolder() const;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

// An item for an absolute path, existing or not; nil for an empty or a relative path. The second
// argument names the path's form and is always 0, the form that AbsolutePath gives.
Ref<FolderItem> GetFolderItem(const std::string& path, int pathForm);

}  // namespace bracken
