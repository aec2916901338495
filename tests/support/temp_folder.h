#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace bracken::test {

// A fresh empty folder, removed with all that is in it at the end of its scope.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::string path() const { return path_.string(); }
    // Absolute path of an entry, existing or not.
    std::string path(std::string_view name) const { return (path_ / name).string(); }

    // Writes a file, making the folders on its way, and gives its absolute path.
    std::string write(std::string_view name, std::string_view bytes) const;
    // The bytes of a file; fails the test if it can't be read.
    std::string read(std::string_view name) const;
    // Makes a folder and those on its way, and gives its absolute path.
    std::string makeFolder(std::string_view name) const;

  private:
    std::filesystem::path path_;
};

}  // namespace bracken::test
