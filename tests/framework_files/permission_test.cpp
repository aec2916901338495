#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "framework/files/folder_item.h"
#include "tests/framework_files/failing_calls.h"
#include "tests/framework_files/variable.h"
#include "tests/support/temp_folder.h"

namespace bracken {
namespace {

using test::TempFolder;

constexpr uid_t nobody = 65534;

// A folder of an ordinary user, whom the test plays also when root runs it.
class Permission : public testing::Test {
  protected:
    Permission() {
        if (!root_) return;
        EXPECT_EQ(chown(folder_.path().c_str(), nobody, nobody), 0);
        EXPECT_EQ(seteuid(nobody), 0);
    }
    ~Permission() override {
        setMode(folder_.path(), 0700);
        if (root_) {
            EXPECT_EQ(seteuid(0), 0);
        }
    }

    static void setMode(const std::string& path, mode_t mode) {
        ASSERT_EQ(chmod(path.c_str(), mode), 0) << path;
    }
    static struct stat factsOf(const std::string& path) {
        struct stat facts = {};
        EXPECT_EQ(stat(path.c_str(), &facts), 0) << path;
        return facts;
    }
    // Writes `text`, and closes the stream or gives it up; false if there is none.
    static bool save(const std::string& path, const std::string& text, bool close = true) {
        const Ref<TextOutputStream> stream = FolderItem(path).CreateTextFile();
        if (!stream) return false;
        stream->Write(text);
        if (close) stream->Close();
        return true;
    }

    const bool root_ = geteuid() == 0;
    TempFolder folder_;
};

TEST_F(Permission, IsNeededToReadAndWrite) {
    const std::string path = folder_.write("f", "secret");
    setMode(path, 0);
    EXPECT_EQ(FolderItem(path).OpenAsBinaryFile(false), nullptr);
    EXPECT_EQ(FolderItem(path).OpenAsTextFile(), nullptr);
    setMode(path, 0400);
    EXPECT_FALSE(save(path, "x")) << "though its folder would allow a rename";
    EXPECT_EQ(folder_.read("f"), "secret");
}

TEST_F(Permission, FilesAreWrittenInPlaceWhereTheFolderAllowsNoNeighbour) {
    const std::string path = folder_.write("f", "old and long");
    setMode(folder_.path(), 0500);
    EXPECT_TRUE(save(path, "given up", false));
    EXPECT_EQ(folder_.read("f"), "old and long");
    EXPECT_TRUE(save(path, "new"));
    EXPECT_EQ(folder_.read("f"), "new");
    EXPECT_FALSE(save(folder_.path("fresh"), "x"));
    const test::Variable preferences("XDG_CONFIG_HOME", folder_.path());
    EXPECT_TRUE(save(path, "secret"));
    EXPECT_EQ(factsOf(path).st_mode & 07777, 0600u);
}

TEST_F(Permission, WhatHasNoRoomInPlaceLeavesTheOldContent) {
    const std::string path = folder_.write("f", "old");
    setMode(folder_.path(), 0500);
    for (const int error : {ENOSPC, EDQUOT, EOPNOTSUPP}) {
        test::FailingCalls calls("fallocate", 1, error);
        const auto file = ReplacingFile::open(path, {}, calls);
        file->write("new");
        EXPECT_EQ(file->commit(), error == EOPNOTSUPP);
        EXPECT_EQ(folder_.read("f"), error == EOPNOTSUPP ? "new" : "old");
    }
}

TEST_F(Permission, AnothersFileStaysItsGroups) {
    if (!root_) GTEST_SKIP() << "needs a second user";
    ASSERT_EQ(seteuid(0), 0);
    const std::string path = folder_.write("shared/f", "old");
    setMode(path, 0664);
    ASSERT_EQ(chown(folder_.path("shared").c_str(), nobody, nobody), 0);
    // Hands its own group to new files.
    setMode(folder_.path("shared"), 02775);
    ASSERT_EQ(seteuid(nobody), 0);
    EXPECT_TRUE(save(path, "new"));
    EXPECT_EQ(folder_.read("shared/f"), "new");
    EXPECT_EQ(factsOf(path).st_gid, getegid());
    EXPECT_EQ(factsOf(path).st_mode & 07777, 0664u);
}

TEST_F(Permission, AnothersFileInAStickyFolderIsWrittenInPlace) {
    if (!root_) GTEST_SKIP() << "needs a second user";
    ASSERT_EQ(seteuid(0), 0);
    const std::string path = folder_.write("shared/f", "old");
    setMode(path, 0666);
    setMode(folder_.path("shared"), 01777);
    ASSERT_EQ(seteuid(nobody), 0);
    EXPECT_TRUE(save(path, "new"));
    EXPECT_EQ(folder_.read("shared/f"), "new");
}

}  // namespace
}  // namespace bracken
