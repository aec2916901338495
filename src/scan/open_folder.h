#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <string>

namespace bracken {

// A folder by a descriptor, so that the way to it is looked up once for all of its files.
class OpenFolder {
  public:
    // Where the system won't open it, its files are reached by their whole paths.
    explicit OpenFolder(std::string path)
        : path_(std::move(path)),
          descriptor_(open(path_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)) {}
    ~OpenFolder() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    OpenFolder(const OpenFolder&) = delete;
    OpenFolder& operator=(const OpenFolder&) = delete;

    const std::string& path() const { return path_; }
    // What the system calls take for a file directly in this folder.
    int descriptor() const { return descriptor_ >= 0 ? descriptor_ : AT_FDCWD; }
    const char* nameOf(const std::string& file) const {
        return file.c_str() + (descriptor_ >= 0 ? file.rfind('/') + 1 : 0);
    }

  private:
    const std::string path_;
    const int descriptor_;
};

}  // namespace bracken
