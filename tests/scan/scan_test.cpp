#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <random>

#include "scan/file_search.h"
#include "tests/scan/plain_scan.h"
#include "tests/scan/results.h"

namespace bracken {
namespace {

using test::Found;
using test::plainScan;

const std::string ended =
    "The application has to end: an error occurred that nothing handles.\n\nNilObjectException";

class Scan : public testing::Test, protected test::Results {
  protected:
    void expectPlainResult(const std::string& extensions, const std::vector<std::string>& tables) {
        setExtensions(extensions);
        winResults().lstResults.DeleteAllRows();
        goToEnd(tables);
        std::vector<Found> wanted = plainScan(folder.path(), extensions, tables);
        for (int row = 0; row < static_cast<int>(tables.size()); row++) {
            auto& list = winResults().lstResults;
            Found found{list.Cell(row, 1), list.Cell(row, 2)};
            ASSERT_EQ(found.names, wanted[static_cast<size_t>(row)].names) << "row " << row;
            ASSERT_EQ(found.paths, wanted[static_cast<size_t>(row)].paths) << "row " << row;
        }
        auto& thread = *winResults().LongProcessThread1;
        EXPECT_EQ(thread.filesProcessed, thread.totalFiles);
        EXPECT_EQ(winResults().ProgressBar1.Maximum, thread.totalFiles);
    }
};

template <class T>
const T& oneOf(const std::vector<T>& all, std::mt19937& random) {
    return all[random() % all.size()];
}

// A text of table names, other bytes and, now and then, more than is read at a time.
std::string randomText(const std::vector<std::string>& tables, std::mt19937& random) {
    std::string text;
    for (auto pieces = random() % 7; pieces > 0; pieces--) {
        if (random() % 60 == 0) text.resize(262144 - random() % 6, '\xff');
        std::string name = oneOf(tables, random);
        if (random() % 2 == 0 && !name.empty()) name[0] = static_cast<char>(toupper(name[0]));
        if (random() % 3 == 0) name = name.substr(0, name.size() / 2);
        text += name + oneOf<std::string>({"", "_", " ", "\n", std::string(1, '\0')}, random);
    }
    return text;
}

TEST_F(Scan, GivesWhatThePlainLoopGives) {
    const std::vector<std::string> tables = {
        "user", "users", "user_id",           "USER", "",         "a",
        "x_",   "order", "\xc3\xa9t\xc3\xa9", "rde",  "tab le,x", "never there"};
    const std::vector<std::string> folders = {"",       "a.d/",     "a.d/b/",   "z/",
                                              "a.d/z/", "a.d/z/y/", "\xc3\xa9/"};
    const std::vector<std::string> names = {"a.php", "data.php", "A.PHP", "b.cgi",     "c",
                                            "x.",    ".h",       "p.h",   "t.tar.php", "Makefile"};
    std::mt19937 random(20260102);
    for (int round = 0; round < 10; round++) {
        for (int file = 0; file < 25; file++)
            folder.write(oneOf(folders, random) + oneOf(names, random), randomText(tables, random));
        for (const char* extensions : {"", "php,cgi", "html"})
            ASSERT_NO_FATAL_FAILURE(expectPlainResult(extensions, tables)) << "round " << round;
        if (round % 5 == 4)
            for (auto& entry : std::filesystem::directory_iterator(folder.path()))
                std::filesystem::remove_all(entry);
    }
}

TEST_F(Scan, FollowsLinksAndPassesOverWhatHasNoText) {
    folder.write("real/a.php", "users");
    folder.write("real/in/b.php", "orders");
    namespace fs = std::filesystem;
    fs::create_directory_symlink(folder.path("real"), folder.path("again"));
    fs::create_directory_symlink(folder.path(), folder.path("real/in/top"));
    fs::create_symlink(folder.path("real/a.php"), folder.path("own name.php"));
    fs::create_symlink("nowhere.php", folder.path("dangling.php"));
    ASSERT_EQ(mkfifo(folder.path("pipe.php").c_str(), 0600), 0);
    expectPlainResult("", {"users", "orders"});
    EXPECT_EQ(column(1), "a.php,own name.php,|b.php,|");
    EXPECT_TRUE(column(2).starts_with(folder.path("again/a.php,"))) << column(2);
}

TEST_F(Scan, TheExtensionFilterIsASubstringTestOfTheLastField) {
    struct Case {
        const char* extensions;
        const char* name;
        bool passes;
    };
    const Case cases[] = {{"php,cgi", "a.php", true},       {"php,cgi", "a.PHP", true},
                          {"php,cgi", "a.c", true},         {"php,cgi", "a.h", true},
                          {"php,cgi", "a.p", true},         {"php,cgi", "a.hp", true},
                          {"php,cgi", "php", true},         {"php,cgi", "a.html", false},
                          {"php,cgi", "a.inc", false},      {"php,cgi", "Makefile", false},
                          {"PHP", "x.php", true},           {"gz", "archive.tar.gz", true},
                          {"tar", "archive.tar.gz", false}, {"htaccess", ".htaccess", true},
                          {"php", "dot.", false},           {"", "dot.", true},
                          {"p,c", "a.p,c", true},           {"php, cgi", "a. cgi", true}};
    for (const Case& one : cases) {
        for (auto& entry : std::filesystem::directory_iterator(folder.path()))
            std::filesystem::remove_all(entry);
        folder.write(one.name, "users");
        setExtensions(one.extensions);
        winResults().lstResults.DeleteAllRows();
        goToEnd({"users"});
        std::string wanted = one.passes ? std::string(one.name) + ",|" : "Not Found Yet|";
        EXPECT_EQ(column(1), wanted) << one.extensions;
        EXPECT_EQ(winResults().LongProcessThread1->filesProcessed, 1);
    }
}

TEST_F(Scan, AChangedExtensionListHoldsFromTheNextFolderEntered) {
    for (const char* name :
         {"a/1.php", "a/2.php", "a/3.js", "b/4.js", "b/5.php", "c/6.php", "c/7.js", "z.php"})
        folder.write(name, "users orders");
    setExtensions("php");
    program.platform.expectBox("Finished");
    go({"users", "orders"});
    stepUntil([&] { return processing(folder.path("a")); });
    setExtensions("js");
    stepUntil([&] { return processing(folder.path("b")); });
    setExtensions("");
    finish();
    EXPECT_EQ(column(1), "1.php,2.php,4.js,6.php,7.js,z.php,|1.php,2.php,4.js,6.php,7.js,z.php,|");
}

TEST_F(Scan, RowsMayComeAndGoDuringARun) {
    for (const char* name : {"1.php", "2.php", "3.php", "4.php"})
        folder.write(name, "one two three");
    program.platform.expectBox("Finished");
    go({"zero", "one", "two"});
    stepUntil([] { return winResults().LongProcessThread1->filesProcessed == 2; });
    auto& list = winResults().lstResults;
    list.RemoveRow(0);
    list.AddRow("three");
    list.Cell(2, 1) = "Not Found Yet";
    list.Cell(1, 0) = "no more";
    finish();
    EXPECT_EQ(std::string(list.Cell(0, 1)), "1.php,2.php,3.php,4.php,");
    EXPECT_EQ(std::string(list.Cell(1, 1)).find("3.php"), std::string::npos);
    EXPECT_NE(std::string(list.Cell(2, 1)).find("3.php,4.php,"), std::string::npos);
}

// Root may read everything, so the run plays an ordinary user.
TEST_F(Scan, AnUnreadableFileEndsTheProgramAndIsNamed) {
    const std::string path = folder.write("in/b.php", "users");
    folder.write("in/a.php", "users");
    chmod(path.c_str(), 0);
    chmod(folder.path().c_str(), 0755);
    const bool root = geteuid() == 0;
    if (root) {
        ASSERT_EQ(seteuid(65534), 0);
    }
    program.platform.expectBox(ended + ": " + path + ": Permission denied");
    go({"users"});
    finish();
    if (root) {
        ASSERT_EQ(seteuid(0), 0);
    }
    EXPECT_EQ(program.platform.abortStatus, 1);
    EXPECT_EQ(column(1), "a.php,|");
    EXPECT_NE(winResults().lblProgress.Caption.get(), "Finished");
    chmod(path.c_str(), 0600);
}

TEST_F(Scan, AFilteredFileIsNeverOpened) {
    const std::string path = folder.write("b.js", "users");
    chmod(path.c_str(), 0);
    std::filesystem::create_symlink("closed/in.js", folder.path("link.js"));
    folder.write("closed/in.js", "users");
    chmod(folder.path("closed").c_str(), 0);
    chmod(folder.path().c_str(), 0755);
    const bool root = geteuid() == 0;
    if (root) {
        ASSERT_EQ(seteuid(65534), 0);
    }
    setExtensions("php");
    goToEnd({"users"});
    if (root) {
        ASSERT_EQ(seteuid(0), 0);
    }
    EXPECT_EQ(column(1), "Not Found Yet|");
    chmod(folder.path("closed").c_str(), 0700);
}

TEST_F(Scan, FoldersThatAreNotThere) {
    program.platform.expectBox("Finished");
    go({"users"}, GetFolderItem(folder.path("gone"), 0));
    finish();
    EXPECT_EQ(column(1), "Not Found Yet|");
    EXPECT_EQ(winResults().ProgressBar1.Maximum, 0);

    program.platform.expectBox(ended);
    go({}, nullptr);
    finish();
    EXPECT_EQ(program.platform.abortStatus, 1);
    EXPECT_EQ(winResults().ProgressBar1.Value, -1);
}

TEST(FileSearch, GoesOnAfterAShortRead) {
    std::array<int, 2> ends{};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()), 0);
    for (std::string part : {"an in", "voi", "ce"}) write(ends[0], part.data(), part.size());
    bracken::Matcher matcher({"invoice", "ice"});
    bracken::Matcher::Hits hits;
    hits.clear(2);
    EXPECT_TRUE(FileSearch().searchOpened(
        ends[1], 10, matcher, [] { return false; }, hits));
    EXPECT_EQ(hits.names(), (std::vector<uint32_t>{0, 1}));
    for (int end : ends) close(end);
}

}  // namespace
}  // namespace bracken
