#pragma once

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/vfs.h>

#include <string>
#include <utility>

#include "framework/files/file_calls.h"

namespace bracken {

// A folder kept open, so that its path is looked up once for all of its files.
class OpenFolder {
  public:
    // No folder: files are reached by their whole paths.
    OpenFolder() : askLengths_(true) {}
    // So they are where the system won't open it.
    explicit OpenFolder(std::string path) : path_(std::move(path)), descriptor_(openFolder(path_)) {
        struct statfs status;
        askLengths_ = !descriptor_.isOpen() || fstatfs(descriptor_.get(), &status) != 0 ||
                      status.f_blocks == 0 || status.f_type == FUSE_SUPER_MAGIC ||
                      status.f_type == V9FS_MAGIC;
    }

    const std::string& path() const { return path_; }
    // Whether a read that gives less than was asked for may be something else than the file's end.
    // Files that the kernel makes up as they are read have a length of 0, on file systems that take
    // no space; file systems of other programs and of hosts may give a file in parts.
    bool askLengths() const { return askLengths_; }
    // What the system calls take for a file directly in this folder.
    int descriptor() const { return descriptor_.isOpen() ? descriptor_.get() : AT_FDCWD; }
    const char* nameOf(const std::string& file) const {
        return file.c_str() + (descriptor_.isOpen() ? file.rfind('/') + 1 : 0);
    }

  private:
    std::string path_;
    Descriptor descriptor_;
    bool askLengths_;
};

}  // namespace bracken
