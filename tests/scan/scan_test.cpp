#include <gtest/gtest.h>

#include <filesystem>

#include "tests/scan/results.h"

namespace bracken {
namespace {

const std::string ended =
    "The application has to end: an error occurred that nothing handles.\n\nNilObjectException";

class Scan : public testing::Test, protected test::Results {};

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

}  // namespace
}  // namespace bracken
