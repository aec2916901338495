#pragma once

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <string>

namespace bracken {

// A folder by a descriptor, so that the way to it is looked up once for all of its files.
class OpenFolder {
  public:
    // No folder: files are reached by their whole paths.
    OpenFolder() : descriptor_(-1), askLengths_(true) {}
    // So they are where the system won't open it.
    explicit OpenFolder(std::string path)
        : path_(std::move(path)),
          descriptor_(open(path_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)) {
        struct statfs facts;
        askLengths_ = descriptor_ < 0 || fstatfs(descriptor_, &facts) != 0 || facts.f_blocks == 0 ||
                      facts.f_type == FUSE_SUPER_MAGIC || facts.f_type == V9FS_MAGIC;
    }
    ~OpenFolder() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    OpenFolder(const OpenFolder&) = delete;
    OpenFolder& operator=(const OpenFolder&) = delete;

    const std::string& path() const { return path_; }
    // Whether a read that gives less than was asked for may be something else than the file's end.
    // Files that the kernel makes up as they are read have a length of 0, on file systems that take
    // no room; file systems of other programs and of hosts may give a file in parts.
    bool askLengths() const { return askLengths_; }
    // What the system calls take for a file directly in this folder.
    int descriptor() const { return descriptor_ >= 0 ? descriptor_ : AT_FDCWD; }
    const char* nameOf(const std::string& file) const {
        return file.c_str() + (descriptor_ >= 0 ? file.rfind('/') + 1 : 0);
    }

  private:
    const std::string path_;
    const int descriptor_;
    bool askLengths_;
};

}  // namespace bracken
