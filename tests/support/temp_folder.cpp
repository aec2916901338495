#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <system_error>

namespace bracken::test {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
    std::string pattern = (fs::temp_directory_path() / "bracken-test-XXXXXX").string();
    const char* made = mkdtemp(pattern.data());
    if (made == nullptr) throw std::system_error(errno, std::generic_category(), pattern);
    path_ = fs::canonical(made);
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string TempFolder::write(std::string_view name, std::string_view bytes) const {
    const fs::path file = path_ / name;
    fs::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    EXPECT_TRUE(stream.good()) << file;
    return file.string();
}

std::string TempFolder::read(std::string_view name) const {
    std::ifstream stream(path_ / name, std::ios::binary);
    EXPECT_TRUE(stream.is_open()) << path(name);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

std::string TempFolder::makeFolder(std::string_view name) const {
    fs::create_directories(path_ / name);
    return path(name);
}

}  // namespace bracken::test
