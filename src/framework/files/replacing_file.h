#pragma once

#include <sys/stat.h>

#include <memory>
#include <string>
#include <string_view>

#include "framework/files/file_calls.h"

namespace bracken {

// A file's new content while it is written. Usually the bytes go to a temporary file in the
// target's folder, which commit() syncs and renames over it, see temporary_files.h. Two kinds of
// target are written in place: special files, at each write; and regular files whose folder allows
// no new file or no rename, at commit, so that a content that is not committed leaves them
// unchanged.
class ReplacingFile {
  public:
    // Modes of the file that results.
    struct Modes {
        // Of a file that did not exist; the process's mask is taken off.
        mode_t newFile = newFileMode;
        // Readable and writable by its owner alone, whatever it was before.
        bool ownerOnly = false;
    };

    // Null, with errno set, if the target can't be created or the user may not write it. Links
    // are resolved first.
    static std::unique_ptr<ReplacingFile> open(const std::string& target, Modes modes);
    // Removes what killed saves have left in the folder of that file, and in that of the file that
    // it is a link to. Opening does so too.
    static void removeLeftOvers(const std::string& target);
    // Drops the content unless it was committed.
    ~ReplacingFile();
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;

    // A failure is remembered and makes commit() fail.
    void write(std::string_view bytes);
    // Whether the new content has replaced the old one. To be called once, as the last call.
    bool commit();

  private:
    // How the bytes of write() get into the target.
    enum class Method { rename, inPlaceAtCommit, direct };

    explicit ReplacingFile(std::string target);
    bool openSpecial();
    bool openExisting(const struct stat& present, bool ownerOnly);
    bool keepOwner(const struct stat& present);
    bool openTemporary(mode_t mode);
    bool openInPlace(mode_t mode);
    bool overwriteInPlace();
    bool renameOver();
    void syncFolder();
    // With its descriptor.
    void dropTemporary();

    std::string target_;
    Method method_ = Method::rename;
    Descriptor file_;
    // Path of the temporary file; "" for none.
    std::string temporary_;
    std::string pending_;
    bool failed_ = false;
};

}  // namespace bracken
