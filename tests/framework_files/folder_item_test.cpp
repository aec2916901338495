#include "framework/files/listing_cache.h"
#include "tests/framework_files/files_test.h"
#include "tests/support/outcome.h"

namespace bracken::test {

namespace fs = std::filesystem;

class Items : public FilesTest {
  protected:
    // Names in their order, "-" for one that is nil.
    static std::string names(const Ref<FolderItem>& folder) {
        std::string list;
        for (int i = 1; i <= folder->Count(); ++i) {
            const Ref<FolderItem> item = folder->Item(i);
            list += (item ? item->Name() : "-") + " ";
        }
        return list;
    }

    const Ref<FolderItem> top = item(folder.path());
};

TEST_F(Items, PathsAndTheirParts) {
    struct Case {
        const char *path, *absolute, *parent, *name, *shell;
    };
    for (const Case& c : {Case{"///", "/", "nil", "/", "'/'"}, Case{"/a", "/a", "/", "a", "'/a'"},
                          Case{"/a/b c/", "/a/b c", "/a", "b c", "'/a/b c'"},
                          Case{"/it's $x", "/it's $x", "/", "it's $x", "'/it'\\''s $x'"}}) {
        const Ref<FolderItem> item = GetFolderItem(c.path, 0);
        EXPECT_EQ(item->AbsolutePath(), c.absolute);
        EXPECT_EQ(item->Parent() ? item->Parent()->AbsolutePath() : "nil", c.parent) << c.path;
        EXPECT_EQ(item->Name(), c.name);
        EXPECT_EQ(item->ShellPath(), c.shell);
    }
    EXPECT_EQ(GetFolderItem("", 0), nullptr);
    EXPECT_EQ(endOf([] { *GetFolderItem("a/b", 0); }),
              "NilObjectException: Not an absolute path: \"a/b\"");
    EXPECT_EQ(GetFolderItem(std::string("/tmp\0x", 6), 0), nullptr);
    EXPECT_EQ(GetFolderItem("/", 0)->Child("a")->AbsolutePath(), "/a");
}

TEST_F(Items, StatusOfFilesFoldersAndNothing) {
    const Ref<FolderItem> made = top->Child("made");
    EXPECT_FALSE(made->Exists() || made->Directory() || made->Length() > 0 || made->Count() > 0);
    made->CreateAsFolder();
    EXPECT_TRUE(made->Exists() && made->Directory() && made->Length() == 0);
    EXPECT_EQ(modeOf(made->AbsolutePath()), 0700U);
    made->Delete();
    const Ref<FolderItem> file = item(folder.write("made", "12345"));
    EXPECT_TRUE(file->Exists() && !file->Directory() && file->Count() == 0);
}

TEST_F(Items, AreInByteOrderAndKeepTheirNumbers) {
    for (const char* name : {"b", "B", "a.php", "_", ".hidden", "\xc3\xa4", "a"})
        folder.write(name, "");
    folder.makeFolder("aa");
    EXPECT_EQ(names(top), ".hidden B _ a a.php aa b \xc3\xa4 ");
    for (const int outside : {0, 9}) EXPECT_EQ(top->Item(outside), nullptr);
    EXPECT_TRUE(top->Item(6)->Directory() && !top->Item(5)->Directory());
    EXPECT_TRUE(!top->Item(6)->listedAsFile() && top->Item(5)->copy()->listedAsFile());
    folder.write("Z", "");
    fs::remove(folder.path("B"));
    EXPECT_EQ(names(top), ".hidden - _ a a.php aa b \xc3\xa4 Z ");
    folder.makeFolder("B");
    EXPECT_EQ(top->Count(), 9);
    EXPECT_TRUE(top->Item(2)->Directory());
    // Each change follows the latest look at once, within one step of the file system's clock.
    for (int i = 10; i <= 200; ++i) {
        folder.write(std::to_string(i), "");
        ASSERT_EQ(top->Count(), i);
        ASSERT_EQ(top->Item(i)->Name(), std::to_string(i));
    }
}

TEST_F(Items, FollowLinksUnderTheirOwnNames) {
    folder.write("real/file", "1234");
    fs::create_symlink("real", folder.path("a-folder"));
    fs::create_symlink("real/file", folder.path("b-file"));
    fs::create_symlink("nowhere", folder.path("dangling"));
    EXPECT_EQ(names(top), "a-folder b-file real ");
    EXPECT_TRUE(top->Item(1)->Directory());
    EXPECT_EQ(top->Item(1)->Item(1)->AbsolutePath(), folder.path("a-folder/file"));
    EXPECT_EQ(top->Item(2)->Length(), 4U);
    fs::remove(folder.path("real/file"));
    EXPECT_EQ(top->Item(2), nullptr) << "its target went, its own folder is untouched";
    top->Item(1)->Delete();
    EXPECT_TRUE(fs::exists(folder.path("real")) && !fs::exists(folder.path("a-folder")));
}

TEST_F(Items, ListingsAreKeptWhileAnyCacheLives) {
    const auto isKept = [](const std::string& path) {
        return ListingCache::list(path) == ListingCache::list(path);
    };
    auto first = std::make_unique<ListingCache>();
    auto second = std::make_unique<ListingCache>();
    first = nullptr;
    // Its latest change is too young at first.
    while (!isKept(folder.path())) continue;
    EXPECT_FALSE(isKept("/dev")) << "what its links lead to may change";
    second = nullptr;
    EXPECT_FALSE(isKept(folder.path()));
}

TEST_F(Items, AWalkThatGoesOnByItselfKnowsWhatWasEntered) {
    for (const std::string name : {"1", "2"}) {
        folder.makeFolder(name + "/in");
        fs::create_symlink(name, folder.path("link" + name));
    }
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

class Reading : public FilesTest {};

TEST_F(Reading, LineEnds) {
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"", {}},
        {"\n", {""}},
        {"a", {"a"}},
        {"a\nb\n", {"a", "b"}},
        {"a\r\nb\rc\nd", {"a", "b", "c", "d"}},
        {"\n\r\n\r\r\n", {"", "", "", ""}},
        {std::string("a\0b\n\xff", 5), {std::string("a\0b", 3), "\xff"}}};
    for (const auto& [text, lines] : cases) {
        const auto stream = item(folder.write("f", text))->OpenAsTextFile();
        std::vector<std::string> got;
        while (!stream->EOF_()) got.push_back(stream->ReadLine(nullptr));
        EXPECT_EQ(got, lines);
        EXPECT_EQ(stream->ReadLine(nullptr), "");
    }
    TextInputStream rest("a\nb\nc");
    EXPECT_EQ(rest.ReadLine(nullptr), "a");
    EXPECT_EQ(rest.ReadAll(), "b\nc");
}

TEST_F(Reading, BytesInPieces) {
    const std::string bytes = std::string("\0\r\n\xfe", 4) + std::string(200000, 'x');
    const auto stream = item(folder.write("f", bytes))->OpenAsBinaryFile(false);
    for (const auto& [count, wanted] : {std::pair(-1, std::string()),
                                        {3, bytes.substr(0, 3)},
                                        {INT32_MAX, bytes.substr(3)},
                                        {1, ""}})
        EXPECT_EQ(stream->Read(count, nullptr), wanted) << count;
}

TEST_F(Reading, SaysWhichFileCannotBeReadAndWhy) {
    for (const auto& [place, why] : {std::pair(folder.path("none"), "No such file or directory"),
                                     {folder.path(), "Is a directory"},
                                     {folder.write("f", "") + "/below", "Not a directory"}}) {
        const std::string path = place;
        const std::string end = "NilObjectException: " + path + ": " + why;
        EXPECT_EQ(endOf([&] { item(path)->OpenAsTextFile()->Close(); }), end);
        EXPECT_EQ(endOf([&] { item(path)->OpenAsBinaryFile(false)->Close(); }), end);
    }
    // Opens, but has nothing to read at its start.
    EXPECT_EQ(endOf([] { item("/proc/self/mem")->OpenAsTextFile()->Close(); }),
              "NilObjectException: /proc/self/mem: Input/output error");
}

}  // namespace bracken::test
