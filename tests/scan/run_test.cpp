#include <ctime>
#include <random>
#include <set>

#include "tests/scan/results.h"

namespace bracken::test {

namespace fs = std::filesystem;

int64_t coarseTime() {
    struct timespec now;
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return now.tv_sec * 1'000'000'000 + now.tv_nsec;
}

// What a run makes of files and rows.
class Run : public Results {
  protected:
    static void stepToFile(int number) {
        stepUntil([=] { return winResults().LongProcessThread1->filesProcessed == number; });
    }
};

// A name is listed once, and so is one that is part of another listed; a folder is entered by a
// link unless it has been entered by then.
TEST_F(Run, ListsFilesInByteOrderOfTheirPaths) {
    for (const char* name : {"a.php", "a/DATA.php", "a/b/x,a.php", "A.php5", "a,b/ta.PHP",
                             "z/,.php", "z/\xff.php", "p", "z/no.js"})
        folder.write(name, "the USERS_");
    folder.write("b.php", "the user");
    for (const auto& [target, name] : {std::pair("", "a/b/top"),
                                       {"a", "0"},
                                       {"z", "a/b/up"},
                                       {"a/b", "z/b"},
                                       {"a.php", "z/link.php"},
                                       {"gone", "gone.php"}})
        fs::create_symlink(folder.path(target), folder.path(name));
    ASSERT_EQ(mkfifo(folder.path("pipe.php").c_str(), 0600), 0);
    App().prefs->root->SetString("extensions", "php,");
    go({"users", ""});
    finish("Finished");
    EXPECT_EQ(column(1), "DATA.php,,.php,link.php,\xff.php,x,a.php,|Not Found Yet|");
    std::string paths = column(2);
    const std::string top = folder.path() + "/";
    for (size_t at; (at = paths.find(top)) != std::string::npos;) paths.erase(at, top.size());
    EXPECT_EQ(paths, "0/DATA.php,0/b/up/,.php,0/b/up/link.php,0/b/up/\xff.php,0/b/x,a.php,||");
    EXPECT_EQ(winResults().LongProcessThread1->filesProcessed, 18);
}

TEST_F(Run, AChangedExtensionListHoldsFromTheNextFolderEntered) {
    for (const char* name : {"a/1.php", "a/3.js", "b/4.js", "b/5.php", "c/6.php", "c/7.js"})
        folder.write(name, "users");
    const auto setExtensions = [](auto list) { App().prefs->root->SetString("extensions", list); };
    setExtensions("php");
    go({"users"});
    stepInto("a");
    setExtensions("js");
    stepInto("b");
    setExtensions("");
    finish("Finished");
    EXPECT_EQ(column(1), "1.php,4.js,6.php,7.js,|");

    // The windows get a turn after each file, also after one that isn't searched.
    setExtensions("none");
    go({"users"});
    int32_t& file = winResults().LongProcessThread1->filesProcessed;
    file = 0;
    std::set<int> seen;
    stepUntil([&] { return *seen.insert(file).first == 6; });
    EXPECT_EQ(seen.size(), 7U);
    finish("Finished");
}

// The plain loop asks for the number of rows, and for the row, anew after each stopping point.
TEST_F(Run, RowsMayComeAndGoBetweenTwoHitsOfAFile) {
    for (const char* name : {"1.php", "2.php"}) folder.write(name, "one two three");
    auto& list = winResults().lstResults;
    const std::string both = "1.php,2.php,|";
    const std::pair<std::string, std::function<void()>> cases[] = {
        {both + both, [&] { list.RemoveRow(1); }},
        {"2.php,|" + both, [&] { list.RemoveRow(0); }},
        {"", [&] { list.DeleteAllRows(); }},
        {both + "|" + both + both,
         [&] {
             list.Cell(1, 0) = "none";
             list.Cell(1, 1) = "";
             list.AddRow("e t");
         }},
        {both + both + "|",
         [&] {
             list.RemoveRow(1);
             list.AddRow("none");
         }},
    };
    for (const auto& [wanted, change] : cases) {
        list.DeleteAllRows();
        go({"one", "two", "three"});
        stepUntil([&] { return list.cellText(0, 1) == "1.php,"; });
        change();
        finish(wanted.empty() ? "Nothing was found" : "Finished");
        EXPECT_EQ(column(1), wanted);
    }
}

TEST_F(Run, WithoutAFolderEndsTheProgram) {
    go({}, nullptr);
    finish(ended);
    EXPECT_EQ(program.platform.abortStatus, 1);
    EXPECT_EQ(winResults().ProgressBar1.Value, -1);
}

TEST_F(Run, WhatAppearsBesideTheFileIsFoundAndWhatVanishesEndsTheRun) {
    for (int i = 10; i < 40; i++) folder.write(std::to_string(i) + ".php", "users");
    go({"users"});
    stepToFile(5);
    folder.write("00.php", "users");
    folder.write("new/in.php", "users");
    finish("Finished");
    EXPECT_EQ(winResults().LongProcessThread1->filesProcessed, 32);
    EXPECT_TRUE(column(1).ends_with("39.php,00.php,in.php,|")) << column(1);

    winResults().lstResults.DeleteAllRows();
    go({"users"});
    stepToFile(5);
    fs::remove(folder.path("39.php"));
    folder.write("zz.php", "users");
    // In the tick in which the folder was last looked at it isn't looked at again.
    for (int64_t tick = coarseTime(); coarseTime() == tick;) continue;
    finish(ended + ": " + folder.path("39.php") + " has vanished");
    EXPECT_EQ(column(1).find("zz.php"), std::string::npos);
}

// What recording a file makes of a cell's text.
std::string recorded(std::string text, const std::string& name) {
    if (equal(text, notFoundYet)) text.clear();
    return InStr(0, text, name) > 0 ? text : text + name + ",";
}

// The index of the names against a search of the text, over all that may happen to the cell.
TEST(ResultsList, RecordsAFileWhoseNameInStrDoesNotFind) {
    FakePlatform platform;
    const auto window = std::make_shared<Window>();
    ResultsList list{*window, "list"};
    std::mt19937 random(20260105);
    // Now and then longer than most file systems take.
    const auto name = [&](const char* letters) {
        std::string made(random() % 6 == 0 ? 300 : 0, 'm');
        for (auto length = 1 + random() % 3; length > 0; length--) made += letters[random() % 5];
        return made;
    };
    for (int step = 0; step < 4000; step++) {
        if (step % 500 == 0) list.DeleteAllRows();
        if (list.ListCount() < 3) list.AddRow("x");
        const int row = static_cast<int>(random() % static_cast<size_t>(list.ListCount()));
        const auto what = random() % 100;
        if (what == 0) list.Cell(row, 1) = name("aB.,b") + (random() % 2 == 0 ? "," : "");
        if (what == 1) list.Cell(row, 1) = notFoundYet;
        if (what == 2) list.RemoveRow(row);
        if (what == 3) list.userClickedHeading(0);
        if (row >= list.ListCount()) continue;
        const std::string added = name(what == 20 ? "aB.,b" : "aB.bA");
        const std::string expected = recorded(list.Cell(row, 1), added);
        list.recordFile(row, added, "/" + added);
        ASSERT_EQ(std::string(list.Cell(row, 1)), expected) << "step " << step << ": " << added;
    }
}

}  // namespace bracken::test
