#include <fcntl.h>
#include <unistd.h>

#include "framework/files/special_folder.h"
#include "framework/files/temporary_files.h"
#include "tests/framework_files/files_test.h"
#include "tests/support/outcome.h"
#include "tests/support/system_calls.h"

namespace bracken::test {

namespace fs = std::filesystem;

// Lets the call of that name fail its `nth` time, counted from 1.
SystemCalls::Fails failing(const char* call, int error, int nth = 1) {
    return [=, made = std::make_shared<int>(0)](std::string_view name) {
        errno = error;
        return name == call && ++*made == nth;
    };
}

class Saving : public FilesTest {
  protected:
    static constexpr const char* leftOver = ".bracken-lens-7-1";
    const std::string file = folder.write("a", "old");
};

TEST_F(Saving, ReplacesOnClosingOnlyAndLeavesNoTrace) {
    for (const bool close : {false, true}) {
        const auto stream = item(file)->CreateTextFile();
        stream->WriteLine("new");
        EXPECT_EQ(folder.read("a"), "old");
        if (close) stream->Close();
        stream->Write("after the end");
    }
    EXPECT_EQ(folder.read("a"), "new\n");
    EXPECT_EQ(entriesOf(folder.path()), 1);
}

TEST_F(Saving, WhateverFailsTheFileIsTheOldOrTheNewOne) {
    struct Case {
        const char* call;
        int nth, error;
        bool saved;
    };
    const std::string text(100'000, 'x');
    for (const Case& c : {Case{"open", 1, ENOSPC, false}, Case{"write", 1, ENOSPC, false},
                          Case{"write", 20000, EDQUOT, false}, Case{"fsync", 1, EIO, false},
                          Case{"rename", 1, EBUSY, false},
                          // The folder can't be synced; the mode can't be kept but in place.
                          Case{"open", 2, EIO, true}, Case{"fsync", 2, EIO, true},
                          Case{"fchmod", 1, EPERM, true}}) {
        SCOPED_TRACE(c.call + std::to_string(c.nth));
        folder.write("a", "old");
        // No more than a few bytes at a time, as a pipe or a full disk takes them.
        const SystemCalls calls(failing(c.call, c.error, c.nth), 5);
        const auto replacing = ReplacingFile::open(file, {});
        if (replacing) replacing->write(text);
        if (replacing) replacing->write("more");
        EXPECT_EQ(replacing && replacing->commit(), c.saved);
        EXPECT_EQ(folder.read("a"), c.saved ? text + "more" : "old");
    }
    EXPECT_EQ(entriesOf(folder.path()), 1);
}

TEST_F(Saving, KeepsTheModeAndPrivateOnesPrivate) {
    umask(022);
    save(folder.path("fresh"), "x");
    EXPECT_EQ(modeOf(folder.path("fresh")), 0644U);
    chmod(file.c_str(), 04751);
    save(file, "x");
    EXPECT_EQ(modeOf(file), 04751U);

    const Ref<FolderItem> settings = SpecialFolder::Preferences()->Child("settings");
    const std::string path = settings->AbsolutePath();
    for (const bool copies : {false, true, false, true}) {
        copies ? item(file)->CopyFileTo(settings) : static_cast<void>(save(path, "x"));
        EXPECT_EQ(modeOf(path), 0600U);
        chmod(path.c_str(), 0664);
    }
}

TEST_F(Saving, LeftOversGoWhenTheyHaveNoWriter) {
    for (const char* other : {".bracken-lens-7-", ".bracken-lens-7-1x", "x.bracken-lens-7-1"})
        folder.write(other, "made by somebody else");
    const auto living = ReplacingFile::open(folder.path("living"), {});
    const auto others = entriesOf(folder.path());
    folder.write(leftOver, "password");
    save(file, "x");
    EXPECT_EQ(entriesOf(folder.path()), others);
    fs::create_symlink(file, folder.path("link"));
    folder.write(leftOver, "password");
    item(folder.path("link"))->removeLeftOvers();
    EXPECT_FALSE(fs::exists(folder.path(leftOver)));
    EXPECT_TRUE(living->commit());
}

TEST_F(Saving, AFileRemovedBeforeItsLockIsMadeAgainAndLocksMayBeMissing) {
    std::string made;
    {
        const SystemCalls calls([&](std::string_view name) {
            // Another program's look for left-overs, whose calls don't count.
            if (name == "flock" && made == "open ") {
                removeLeftOvers(folder.path());
                made = "removed ";
            }
            // The library lists the folder by these.
            if (name != "openat" && name != "readdir") made += std::string(name) + " ";
            return false;
        });
        save(file, "whole");
    }
    EXPECT_EQ(folder.read("a"), "whole");
    EXPECT_EQ(made, "removed flock open flock fchmod write fsync rename open fsync ");
    folder.write(leftOver, "");
    const SystemCalls calls([](std::string_view name) {
        errno = ENOLCK;
        return name == "flock";
    });
    EXPECT_TRUE(save(file, "x"));
    EXPECT_TRUE(fs::exists(folder.path(leftOver))) << "it may have a writer";
}

TEST_F(Saving, ResolvesLinksAndWritesThroughAPipeThatReadsAsEmpty) {
    folder.write("deep/target", "old");
    for (const std::string target : {"deep/target", "deep/fresh"}) {
        const std::string link = folder.path("link-to-" + target.substr(5));
        fs::create_symlink(target, link);
        save(link, "new");
        EXPECT_TRUE(fs::is_symlink(link)) << target;
        EXPECT_EQ(folder.read(target), "new");
    }
    const std::string pipe = folder.path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(save(pipe, "text")) << "nobody reads it";
    EXPECT_EQ(item(pipe)->OpenAsBinaryFile(false)->Read(10, nullptr), "");
    const Descriptor reader(open(pipe.c_str(), O_RDONLY | O_NONBLOCK));
    save(pipe, "text");
    EXPECT_TRUE(item(pipe)->OpenAsTextFile()->EOF_());
    char got[10] = {};
    EXPECT_EQ(read(reader.get(), got, sizeof got), 4);
}

TEST_F(Saving, SaysWhichFileCannotBeMade) {
    fs::create_symlink("loop", folder.path("loop"));
    for (const std::string& path : {folder.path("none/file"), folder.path(), folder.path("loop")}) {
        const std::string end = endOf([&] { item(path)->CreateTextFile()->Write("x"); });
        EXPECT_TRUE(end.starts_with("NilObjectException: " + path)) << path << ", not " << end;
    }
}

TEST_F(Saving, ACopyHasBytesAndModeAndLeavesTheTargetOnFailure) {
    const std::string bytes("a\0b\r\n\xff", 6);
    const Ref<FolderItem> source = item(folder.write("source", bytes));
    const Ref<FolderItem> copy = item(folder.path("copy"));
    chmod(source->AbsolutePath().c_str(), 0600);
    source->CopyFileTo(copy);
    EXPECT_EQ(modeOf(folder.path("copy")), 0600U);
    item(folder.path("none"))->CopyFileTo(copy);
    item(folder.path())->CopyFileTo(copy);
    EXPECT_EQ(folder.read("copy"), bytes);
}

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

TEST_F(Permission, AnothersFileStaysTheirsAndIsWrittenInPlaceInAStickyFolder) {
    const auto status = [this] {
        struct stat now = {};
        stat(file.c_str(), &now);
        return now;
    };
    const uid_t owner = status().st_uid;
    if (root_) become(0);
    EXPECT_TRUE(save(file, "by root"));
    EXPECT_EQ(status().st_uid, owner);
    if (!root_) return;
    for (const std::string& path : {folder.path(), file}) EXPECT_EQ(chown(path.c_str(), 0, 0), 0);
    chmod(folder.path().c_str(), 01777);
    chmod(file.c_str(), 0666);
    const ino_t inode = status().st_ino;
    become(nobody);
    EXPECT_TRUE(save(file, "in place"));
    EXPECT_EQ(status().st_ino, inode);
}

TEST_F(Permission, FilesAreWrittenInPlaceWhereTheFolderAllowsNoNeighbour) {
    chmod(folder.path().c_str(), 0500);
    item(file)->CreateTextFile()->Write("given up");
    EXPECT_EQ(folder.read("f"), "old and long");
    for (const int error : {ENOSPC, EDQUOT, EOPNOTSUPP}) {
        const SystemCalls calls(failing("fallocate", error));
        const auto replacing = ReplacingFile::open(file, {});
        replacing->write("new");
        EXPECT_EQ(replacing->commit(), error == EOPNOTSUPP) << "there may be room: " << error;
        EXPECT_EQ(folder.read("f"), error == EOPNOTSUPP ? "new" : "old and long");
    }
    EXPECT_FALSE(save(folder.path("fresh"), "x"));
    const Variable preferences("XDG_CONFIG_HOME", folder.path());
    EXPECT_TRUE(save(file, "secret"));
    EXPECT_EQ(modeOf(file), 0600U);
}

}  // namespace bracken::test
