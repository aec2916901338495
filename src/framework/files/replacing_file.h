#pragma once

#include <sys/stat.h>

#include <memory>
#include <string>
#include <string_view>

#include "framework/files/file_calls.h"

namespace bracken {

// A file's new content on its way. In the usual case the bytes go to a temporary file beside the
// target, which commit() syncs and renames over it, see temporary_files.h. Two kinds of target are
// written in place: special files, as the bytes come; and regular files whose folder allows no
// neighbour or no rename, at commit, so that a content given up before leaves them as they were.
class ReplacingFile {
  public:
    // Modes of the file that results.
    struct Modes {
        // Of a file that did not exist; the process's mask is taken off.
        mode_t fresh = 0666;
        // Readable and writable by its owner alone, whatever it was before.
        bool ownerOnly = false;
    };

    // Null, with errno set, if the target can't be created or the user may not write it. Links
    // are resolved first. `calls` outlives the result.
    static std::unique_ptr<ReplacingFile> open(const std::string& target, Modes modes,
                                               FileCalls& calls);
    // Removes what saves of that file that were killed have left beside it, and beside what it is a
    // link to. Opening does so too.
    static void removeLeftOvers(const std::string& target);
    // Gives the content up unless it was committed.
    ~ReplacingFile();
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;

    // A failure is remembered and makes commit() fail.
    void write(std::string_view bytes);
    // Whether the new content has taken the old one's place. To be called once, as the last call.
    bool commit();

  private:
    // Where the bytes of write() go.
    enum class Way { beside, inPlaceAtCommit, through };

    ReplacingFile(std::string target, FileCalls& calls);
    bool openSpecial();
    bool openExisting(const struct stat& present, bool ownerOnly);
    bool keepOwner(const struct stat& present);
    bool openBeside(mode_t mode);
    bool openInPlace(mode_t mode);
    bool overwriteInPlace();
    bool renameOver();
    void syncFolder();
    // With its descriptor.
    void dropTemporary();
    bool closeDescriptor();

    std::string target_;
    FileCalls& calls_;
    Way way_ = Way::beside;
    int descriptor_ = -1;
    std::string temporary_;
    std::string pending_;
    bool failed_ = false;
};

}  // namespace bracken
