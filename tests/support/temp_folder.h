#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace bracken::test {

inline ptrdiff_t entriesOf(const std::string& path) {
    return std::distance(std::filesystem::directory_iterator(path), {});
}

// Fails the test if other descriptors are open at its end than at its start.
struct DescriptorCheck {
    const ptrdiff_t before = entriesOf("/proc/self/fd");
    ~DescriptorCheck() { EXPECT_EQ(entriesOf("/proc/self/fd"), before); }
};

// A fresh empty folder, removed with all that is in it at the end of its scope.
class TempFolder {
  public:
    TempFolder() {
        std::string pattern = std::filesystem::temp_directory_path() / "bracken-test-XXXXXX";
        EXPECT_NE(mkdtemp(pattern.data()), nullptr) << pattern;
        path_ = std::filesystem::canonical(pattern);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::string path() const { return path_.string(); }
    // Absolute path of an entry, existing or not.
    std::string path(std::string_view name) const { return (path_ / name).string(); }

    // Writes a file, making the folders on its way, and gives its absolute path.
    std::string write(std::string_view name, std::string_view bytes) const {
        const std::filesystem::path file = path_ / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream stream(file, std::ios::binary | std::ios::trunc);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        stream.close();
        EXPECT_TRUE(stream.good()) << file;
        return file.string();
    }
    // The bytes of a file; fails the test if it can't be read.
    std::string read(std::string_view name) const {
        std::ifstream stream(path_ / name, std::ios::binary);
        EXPECT_TRUE(stream.is_open()) << path(name);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    // Makes a folder and those on its way, and gives its absolute path.
    std::string makeFolder(std::string_view name) const {
        std::filesystem::create_directories(path_ / name);
        return path(name);
    }

  private:
    std::filesystem::path path_;
};

}  // namespace bracken::test
