#include <unistd.h>

#include "tests/framework_files/failing_calls.h"
#include "tests/framework_files/files_test.h"

namespace bracken::test {
namespace {

// An ordinary user, whom the test plays also when root runs it.
class Permission : public FilesTest {
  protected:
    Permission() {
        if (root_) {
            EXPECT_EQ(chown(folder.path().c_str(), nobody, nobody), 0);
            become(nobody);
        }
        folder.write("f", "old and long");
    }
    ~Permission() override {
        chmod(folder.path().c_str(), 0700);
        if (root_) become(0);
    }

    static void become(uid_t user) { EXPECT_EQ(seteuid(user), 0); }

    static constexpr uid_t nobody = 65534;
    const bool root_ = geteuid() == 0;
    const std::string file = folder.path("f");
};

TEST_F(Permission, IsNeededToReadAndToWrite) {
    chmod(file.c_str(), 0400);
    EXPECT_EQ(item(file)->OpenAsBinaryFile(false)->Read(3, nullptr), "old");
    EXPECT_EQ(item(file)->OpenAsBinaryFile(true), nullptr);
    EXPECT_FALSE(save(file, "x")) << "though its folder would allow a rename";
    EXPECT_EQ(folder.read("f"), "old and long");
    chmod(file.c_str(), 0);
    EXPECT_EQ(item(file)->OpenAsBinaryFile(false), nullptr);
}

TEST_F(Permission, FilesAreWrittenInPlaceWhereTheFolderAllowsNoNeighbour) {
    chmod(folder.path().c_str(), 0500);
    item(file)->CreateTextFile()->Write("given up");
    EXPECT_EQ(folder.read("f"), "old and long");
    for (const int error : {ENOSPC, EDQUOT, EOPNOTSUPP}) {
        FailingCalls calls("fallocate", 1, error);
        const auto replacing = ReplacingFile::open(file, {}, calls);
        replacing->write("new");
        EXPECT_EQ(replacing->commit(), error == EOPNOTSUPP) << "there may be room: " << error;
        EXPECT_EQ(folder.read("f"), error == EOPNOTSUPP ? "new" : "old and long");
    }
    EXPECT_FALSE(save(folder.path("fresh"), "x"));
    const Variable preferences("XDG_CONFIG_HOME", folder.path());
    EXPECT_TRUE(save(file, "secret"));
    EXPECT_EQ(modeOf(file), 0600U);
}

}  // namespace
}  // namespace bracken::test
