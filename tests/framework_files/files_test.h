#pragma once

#include <sys/stat.h>

#include "framework/files/folder_item.h"
#include "tests/support/temp_folder.h"

namespace bracken::test {

// Sets a variable of the environment for a scope.
class Variable {
  public:
    Variable(const char* name, const std::optional<std::string>& value) : name_(name) {
        if (const char* before = std::getenv(name)) before_ = before;
        set(value);
    }
    ~Variable() { set(before_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    void set(const std::optional<std::string>& value) const {
        if (value)
            setenv(name_, value->c_str(), 1);
        else
            unsetenv(name_);
    }

    const char* name_;
    std::optional<std::string> before_;
};

// A test with a folder, which must leave no descriptor open.
class FilesTest : public testing::Test {
  protected:
    static mode_t modeOf(const std::string& path) {
        struct stat status = {};
        EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
        return status.st_mode & 07777;
    }
    static Ref<FolderItem> item(const std::string& path) { return GetFolderItem(path, 0); }
    // False if the text can't be saved there.
    static bool save(const std::string& path, const std::string& text) {
        const Ref<TextOutputStream> stream = item(path)->CreateTextFile();
        if (!stream) return false;
        stream->Write(text);
        return stream->Close();
    }

    DescriptorCheck descriptors;
    const TempFolder folder;
};

}  // namespace bracken::test
