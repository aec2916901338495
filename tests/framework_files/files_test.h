#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "framework/files/folder_item.h"
#include "tests/support/temp_folder.h"

namespace bracken::test {

// A test with a folder, which must leave no descriptor open.
class FilesTest : public testing::Test {
  protected:
    ~FilesTest() override { EXPECT_EQ(entriesOf("/proc/self/fd"), descriptors_); }

    static ptrdiff_t entriesOf(const std::string& path) {
        return std::distance(std::filesystem::directory_iterator(path), {});
    }
    static mode_t modeOf(const std::string& path) {
        struct stat status = {};
        EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
        return status.st_mode & 07777;
    }
    static Ref<FolderItem> item(const std::string& path) { return GetFolderItem(path, 0); }
    // False if no file can be made there.
    static bool save(const std::string& path, const std::string& text) {
        const Ref<TextOutputStream> stream = item(path)->CreateTextFile();
        if (!stream) return false;
        stream->Write(text);
        stream->Close();
        return true;
    }

    const TempFolder folder;

  private:
    const ptrdiff_t descriptors_ = entriesOf("/proc/self/fd");
};

}  // namespace bracken::test
