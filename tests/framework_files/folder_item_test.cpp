#include "framework/files/folder_item.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <set>

#include "tests/support/outcome.h"
#include "tests/support/temp_folder.h"

namespace bracken {
namespace {

using test::TempFolder;

namespace fs = std::filesystem;

// Names in their order, "-" for one that is nil.
std::string names(const Ref<FolderItem>& folder) {
    std::string list;
    for (int i = 1; i <= folder->Count(); ++i) {
        const Ref<FolderItem> item = folder->Item(i);
        list += (item ? item->Name() : "-") + " ";
    }
    return list;
}

Ref<FolderItem> itemOf(const TempFolder& folder) {
    return make<FolderItem>(folder.path());
}

TEST(FolderItem, PathsAndTheirParts) {
    struct Case {
        const char* path;
        const char* absolute;
        const char* name;
        const char* shell;
    };
    for (const Case& c :
         {Case{"/", "/", "/", "'/'"}, Case{"///", "/", "/", "'/'"}, Case{"/a", "/a", "a", "'/a'"},
          Case{"/a/b c/", "/a/b c", "b c", "'/a/b c'"},
          Case{"/it's $x", "/it's $x", "it's $x", "'/it'\\''s $x'"}}) {
        const Ref<FolderItem> item = GetFolderItem(c.path, 0);
        EXPECT_EQ(item->AbsolutePath(), c.absolute);
        EXPECT_EQ(item->Name(), c.name);
        EXPECT_EQ(item->ShellPath(), c.shell);
    }
    EXPECT_EQ(GetFolderItem("", 0), nullptr);
    EXPECT_EQ(test::endOf([] { *GetFolderItem("a/b", 0); }),
              "NilObjectException: Not an absolute path: \"a/b\"");
    EXPECT_EQ(GetFolderItem(std::string("/tmp\0x", 6), 0), nullptr);
    EXPECT_EQ(GetFolderItem("/", 0)->Parent(), nullptr);
    EXPECT_EQ(GetFolderItem("/a", 0)->Parent()->AbsolutePath(), "/");
    EXPECT_EQ(GetFolderItem("/a/b", 0)->Parent()->AbsolutePath(), "/a");
    EXPECT_EQ(GetFolderItem("/", 0)->Child("a")->AbsolutePath(), "/a");
}

TEST(FolderItem, FactsOfFilesFoldersAndNothing) {
    const TempFolder folder;
    const Ref<FolderItem> file = make<FolderItem>(folder.write("file", "12345"));
    EXPECT_TRUE(file->Exists() && !file->Directory());
    EXPECT_EQ(file->Length(), 5u);
    EXPECT_EQ(file->Count(), 0);
    EXPECT_EQ(file->Item(1), nullptr);
    EXPECT_TRUE(itemOf(folder)->Directory());
    EXPECT_EQ(itemOf(folder)->Length(), 0u);
    const Ref<FolderItem> made = itemOf(folder)->Child("made");
    EXPECT_FALSE(made->Exists() || made->Directory());
    EXPECT_EQ(made->Count(), 0);
    made->CreateAsFolder();
    EXPECT_TRUE(made->Directory());
    EXPECT_EQ(fs::status(made->AbsolutePath()).permissions(), fs::perms::owner_all);
    made->Delete();
    file->Delete();
    EXPECT_EQ(itemOf(folder)->Count(), 0);
}

TEST(Listing, IsInByteOrderWithHiddenOnesAndFoldersAmongFiles) {
    const TempFolder folder;
    for (const char* name : {"b", "B", "a.php", "_", ".hidden", "\xc3\xa4", "a"})
        folder.write(name, "");
    folder.makeFolder("aa");
    EXPECT_EQ(names(itemOf(folder)), ".hidden B _ a a.php aa b \xc3\xa4 ");
    EXPECT_EQ(itemOf(folder)->Item(0), nullptr);
    EXPECT_EQ(itemOf(folder)->Item(9), nullptr);
    EXPECT_TRUE(itemOf(folder)->Item(6)->Directory());
    EXPECT_FALSE(itemOf(folder)->Item(5)->Directory());
}

TEST(Listing, EntriesKeepTheirNumbers) {
    const TempFolder folder;
    folder.write("b", "");
    folder.write("c", "");
    const Ref<FolderItem> item = itemOf(folder);
    EXPECT_EQ(names(item), "b c ");
    folder.write("a", "");
    EXPECT_EQ(names(item), "b c a ");
    fs::remove(folder.path("b"));
    EXPECT_EQ(names(item), "- c a ");
    folder.makeFolder("b");
    folder.write("d", "");
    EXPECT_EQ(names(item), "b c a d ");
    EXPECT_TRUE(item->Item(1)->Directory());
    EXPECT_EQ(names(itemOf(folder)), "a b c d ");
}

// Each change follows the latest look at once, mostly within one step of the file system's clock.
TEST(Listing, SeesEachOfManyChangesInQuickSuccession) {
    const TempFolder folder;
    const Ref<FolderItem> item = itemOf(folder);
    for (int i = 1; i <= 200; ++i) {
        folder.write(std::to_string(i), "");
        ASSERT_EQ(item->Count(), i);
        ASSERT_EQ(item->Item(i)->Name(), std::to_string(i));
    }
}

TEST(Listing, SeesAFolderExchangedOrRemoved) {
    const TempFolder folder;
    folder.write("in/a", "");
    folder.write("other/b", "");
    const Ref<FolderItem> item = make<FolderItem>(folder.path("in"));
    EXPECT_EQ(names(item), "a ");
    fs::rename(folder.path("in"), folder.path("away"));
    EXPECT_EQ(item->Count(), 0);
    fs::rename(folder.path("other"), folder.path("in"));
    EXPECT_EQ(names(item), "- b ");
}

TEST(Listing, FollowsLinksUnderTheirOwnNames) {
    const TempFolder folder;
    folder.write("real/file", "1234");
    fs::create_symlink("real", folder.path("a-folder"));
    fs::create_symlink("real/file", folder.path("b-file"));
    fs::create_symlink("nowhere", folder.path("dangling"));
    fs::create_symlink("loop", folder.path("loop"));
    const Ref<FolderItem> item = itemOf(folder);
    EXPECT_EQ(names(item), "a-folder b-file real ");
    EXPECT_TRUE(item->Item(1)->Directory());
    EXPECT_EQ(item->Item(1)->Item(1)->AbsolutePath(), folder.path("a-folder/file"));
    EXPECT_EQ(item->Item(2)->AbsolutePath(), folder.path("b-file"));
    EXPECT_EQ(item->Item(2)->Length(), 4u);
    fs::remove(folder.path("real/file"));
    EXPECT_EQ(item->Item(2), nullptr) << "its target went, its own folder is untouched";
    item->Item(1)->Delete();
    EXPECT_TRUE(fs::exists(folder.path("real")));
}

// Walks a tree as the scan does and lists the paths below its root.
void walk(const Ref<FolderItem>& folder, size_t rootLength, std::multiset<std::string>& paths) {
    for (int i = 1; i <= folder->Count() && paths.size() < 1000; ++i) {
        paths.insert(folder->Item(i)->AbsolutePath().substr(rootLength));
        walk(folder->Item(i), rootLength, paths);
    }
}

TEST(Listing, EntersAFolderByLinksOnce) {
    const TempFolder folder;
    folder.write("a/b/file", "");
    fs::create_symlink("../..", folder.path("a/b/up"));
    fs::create_symlink("b", folder.path("a/beside"));
    fs::create_symlink(".", folder.path("self"));
    std::multiset<std::string> paths;
    walk(itemOf(folder), folder.path().size(), paths);
    EXPECT_EQ(paths, (std::multiset<std::string>{"/a", "/a/b", "/a/b/file", "/a/b/up", "/a/beside",
                                                 "/self"}));
}

TEST(Listing, AWalkThatGoesOnByItselfKnowsWhatWasEntered) {
    const TempFolder folder;
    for (const char* name : {"1", "2"}) {
        folder.makeFolder(std::string(name) + "/in");
        fs::create_symlink(name, folder.path(std::string("link") + name));
    }
    const Ref<FolderItem> top = itemOf(folder);
    EXPECT_EQ(top->Item(1)->Count(), 1);
    const Ref<FolderItem> link = top->Item(4);
    const Ref<FolderItem> other = top->Item(3)->copy();
    const Ref<FolderItem> another = link->copy();
    EXPECT_EQ(top->Item(2)->Count(), 1);
    EXPECT_EQ(link->Count(), 0) << "entered as a real folder";
    EXPECT_EQ(another->Count(), 1) << "not by that walk";
    EXPECT_EQ(other->Count(), 0) << "entered before they parted";
    EXPECT_EQ(top->copy()->Item(4)->Count(), 1) << "from the start";
}

}  // namespace
}  // namespace bracken
