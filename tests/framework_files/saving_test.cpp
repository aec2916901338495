#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <utility>

#include "framework/files/folder_item.h"
#include "framework/files/special_folder.h"
#include "framework/files/temporary_files.h"
#include "tests/framework_files/failing_calls.h"
#include "tests/support/temp_folder.h"

namespace bracken {
namespace {

using test::FailingCalls;
using test::TempFolder;

namespace fs = std::filesystem;

Ref<TextOutputStream> create(const std::string& path) {
    return make<FolderItem>(path)->CreateTextFile();
}

void save(const std::string& path, const std::string& text) {
    const Ref<TextOutputStream> stream = create(path);
    stream->Write(text);
    stream->Close();
}

mode_t modeOf(const std::string& path) {
    struct stat facts = {};
    EXPECT_EQ(stat(path.c_str(), &facts), 0) << path;
    return facts.st_mode & 07777;
}

size_t entriesOf(const TempFolder& folder) {
    return static_cast<size_t>(
        std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()));
}

TEST(Saving, ReplacesOnlyOnClose) {
    const TempFolder folder;
    const std::string path = folder.write("a.txt", "old");
    const Ref<TextOutputStream> stream = create(path);
    stream->WriteLine("new");
    stream->Write(std::string(300000, 'x'));
    EXPECT_EQ(folder.read("a.txt"), "old");
    stream->Close();
    EXPECT_EQ(folder.read("a.txt"), "new\n" + std::string(300000, 'x'));
    stream->Write("after the end");
    EXPECT_EQ(entriesOf(folder), 1u);
}

TEST(Saving, StreamGivenUpLeavesNoTrace) {
    const TempFolder folder;
    const std::string path = folder.write("a.txt", "old");
    create(path)->Write("new");
    EXPECT_EQ(folder.read("a.txt"), "old");
    EXPECT_EQ(entriesOf(folder), 1u);
}

TEST(Saving, SyncsBeforeAndAfterTheRename) {
    const TempFolder folder;
    FailingCalls calls;
    const auto file = ReplacingFile::open(folder.write("a", "old"), {}, calls);
    file->write("new");
    EXPECT_TRUE(file->commit());
    EXPECT_EQ(calls.made(), (std::vector<std::string>{"open", "lock", "fchmod", "write", "fsync",
                                                      "rename", "open", "fsync"}));
    EXPECT_EQ(folder.read("a"), "new");
}

TEST(Saving, OldFileStandsWhateverFails) {
    struct Case {
        const char* call;
        int nth;
        int error;
    };
    for (const Case& c :
         {Case{"open", 1, ENOSPC}, Case{"open", 1, EMFILE}, Case{"write", 1, ENOSPC},
          Case{"write", 2, EIO}, Case{"write", 20000, EDQUOT}, Case{"fsync", 1, EIO},
          Case{"rename", 1, EBUSY}}) {
        const TempFolder folder;
        FailingCalls calls(c.call, c.nth, c.error);
        auto file = ReplacingFile::open(folder.write("a", "old"), {}, calls);
        if (file) {
            file->write(std::string(100000, 'x'));
            file->write("more");
            EXPECT_FALSE(file->commit()) << c.call << c.nth;
            file.reset();
        } else {
            EXPECT_STREQ(c.call, "open");
        }
        EXPECT_EQ(folder.read("a"), "old") << c.call << c.nth;
        EXPECT_EQ(entriesOf(folder), 1u) << c.call << c.nth;
    }
}

TEST(Saving, AFileWhoseModeCannotBeKeptIsWrittenInPlace) {
    const TempFolder folder;
    const std::string path = folder.write("a", "old and long");
    FailingCalls calls("fchmod", 1, EPERM);
    const auto file = ReplacingFile::open(path, {}, calls);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(entriesOf(folder), 1u);
    file->write("new");
    EXPECT_EQ(folder.read("a"), "old and long");
    EXPECT_TRUE(file->commit());
    EXPECT_EQ(folder.read("a"), "new");
}

TEST(Saving, NewFileStandsThoughItsFolderCannotBeSynced) {
    for (const char* call : {"open", "fsync"}) {
        const TempFolder folder;
        FailingCalls calls(call, 2, EIO);
        const auto file = ReplacingFile::open(folder.path("a"), {}, calls);
        file->write("new");
        EXPECT_TRUE(file->commit()) << call;
        EXPECT_EQ(folder.read("a"), "new") << call;
    }
}

TEST(Saving, KeepsTheModeAndPrivateOnesPrivate) {
    const TempFolder folder;
    const mode_t mask = umask(022);
    const std::string fresh = folder.path("fresh");
    save(fresh, "x");
    EXPECT_EQ(modeOf(fresh), 0644u);
    const std::string kept = folder.write("kept", "");
    chmod(kept.c_str(), 0751);
    save(kept, "x");
    EXPECT_EQ(modeOf(kept), 0751u);

    const Ref<FolderItem> settings = SpecialFolder::Preferences()->Child("settings");
    save(settings->AbsolutePath(), "x");
    EXPECT_EQ(modeOf(settings->AbsolutePath()), 0600u);
    chmod(settings->AbsolutePath().c_str(), 0664);
    save(settings->AbsolutePath(), "y");
    EXPECT_EQ(modeOf(settings->AbsolutePath()), 0600u);
    make<FolderItem>(kept)->CopyFileTo(settings);
    EXPECT_EQ(modeOf(settings->AbsolutePath()), 0600u);
    settings->Delete();
    umask(mask);
}

// Whatever comes to the folder between the making or finding of a temporary file and its lock.
struct Interrupted : FileCalls {
    std::function<void()> between;
    int lock(int descriptor) override {
        if (between) std::exchange(between, nullptr)();
        return FileCalls::lock(descriptor);
    }
};

class LeftOvers : public testing::Test {
  protected:
    void put() const { folder.write(name, "password"); }
    bool present() const { return fs::exists(folder.path(name)); }

    static constexpr const char* name = ".bracken-lens-7-1";
    const TempFolder folder;
};

TEST_F(LeftOvers, GoWhenTheyHaveNoWriter) {
    for (const char* other : {".bracken-lens-", ".bracken-lens-7", ".bracken-lens-7-",
                              ".bracken-lens-7-1x", ".bracken-lens--1", "x.bracken-lens-7-1"})
        folder.write(other, "made by somebody else");
    folder.makeFolder(".bracken-lens-1-1");
    folder.write("elsewhere/target", "");
    fs::create_symlink(folder.path("saved"), folder.path("elsewhere/link"));
    folder.write("saved", "");
    const auto living = ReplacingFile::open(folder.path("living"), {}, FileCalls::system());
    const size_t others = entriesOf(folder);
    const auto target = make<FolderItem>(folder.path("elsewhere/target"));
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"save", [&] { save(folder.path("saved"), "x"); }},
        {"copy", [&] { target->CopyFileTo(make<FolderItem>(folder.path("saved"))); }},
        {"start", [&] { make<FolderItem>(folder.path("none"))->removeLeftOvers(); }},
        {"link", [&] { make<FolderItem>(folder.path("elsewhere/link"))->removeLeftOvers(); }},
    };
    for (const auto& [way, act] : cases) {
        put();
        act();
        EXPECT_FALSE(present()) << way;
        EXPECT_EQ(entriesOf(folder), others) << way;
    }
    living->write("whole");
    EXPECT_TRUE(living->commit());
    EXPECT_EQ(folder.read("living"), "whole");
}

TEST_F(LeftOvers, AreNeverTheFilesOfWhoComesInBetween) {
    Interrupted calls;
    // One that somebody removed ahead of the lock, and a living writer has its name now.
    put();
    calls.between = [&] {
        fs::rename(folder.path(name), folder.path("removed"));
        put();
    };
    removeLeftOvers(folder.path(), calls);
    EXPECT_TRUE(present());
    fs::remove(folder.path(name));
    // A writer whose file is removed ahead of its lock.
    calls.between = [&] { removeLeftOvers(folder.path(), FileCalls::system()); };
    const auto file = ReplacingFile::open(folder.path("saved"), {}, calls);
    file->write("whole");
    EXPECT_TRUE(file->commit());
    EXPECT_EQ(folder.read("saved"), "whole");
    // Where there are no locks saving works, and none is known to have no writer.
    put();
    FailingCalls none("lock", 1, ENOLCK);
    const auto unlocked = ReplacingFile::open(folder.path("saved"), {}, none);
    unlocked->write("new");
    EXPECT_TRUE(unlocked->commit());
    EXPECT_EQ(folder.read("saved"), "new");
    EXPECT_TRUE(present());
}

TEST(Saving, ResolvesLinks) {
    const TempFolder folder;
    folder.write("deep/target", "old");
    for (const char* target : {"deep/target", "deep/fresh"}) {
        const std::string link = folder.path("link");
        fs::create_symlink(target, link);
        save(link, "new");
        EXPECT_TRUE(fs::is_symlink(link)) << target;
        EXPECT_EQ(folder.read(target), "new");
        fs::remove(link);
    }
}

TEST(Saving, WritesThroughSpecialFiles) {
    const TempFolder folder;
    const std::string pipe = folder.path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(create(pipe), nullptr) << "nobody reads it";
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    save(pipe, "text");
    char got[10] = {};
    EXPECT_EQ(read(reader, got, sizeof got), 4);
    EXPECT_STREQ(got, "text");
    close(reader);
    EXPECT_FALSE(fs::is_regular_file(pipe));
}

TEST(Saving, SaysWhyAFileCannotBeMade) {
    const TempFolder folder;
    fs::create_symlink("loop", folder.path("loop"));
    for (const std::string& path : {folder.path("none/file"), folder.path(), folder.path("loop")}) {
        try {
            create(path)->Write("x");
            ADD_FAILURE() << path;
        } catch (const NilObjectException& error) {
            EXPECT_EQ(error.text().compare(0, path.size(), path), 0) << error.text();
        }
    }
}

TEST(Copying, TakesBytesAndModeAndLeavesTheTargetOnFailure) {
    const TempFolder folder;
    const std::string bytes("a\0b\r\n\xff", 6);
    const Ref<FolderItem> source = make<FolderItem>(folder.write("source", bytes));
    chmod(source->AbsolutePath().c_str(), 0600);
    folder.makeFolder("into");
    source->CopyFileTo(make<FolderItem>(folder.path("copy")));
    source->CopyFileTo(make<FolderItem>(folder.path("into")));
    EXPECT_EQ(folder.read("copy"), bytes);
    EXPECT_EQ(modeOf(folder.path("copy")), 0600u);
    EXPECT_EQ(folder.read("into/source"), bytes);

    make<FolderItem>(folder.path("none"))->CopyFileTo(make<FolderItem>(folder.path("copy")));
    make<FolderItem>(folder.path("into"))->CopyFileTo(make<FolderItem>(folder.path("copy")));
    EXPECT_EQ(folder.read("copy"), bytes);
}

}  // namespace
}  // namespace bracken
