#include <gtest/gtest.h>

#include <random>

#include "framework/windows/windows.h"
#include "tests/scan/results.h"

namespace bracken {
namespace {

const std::string stopped = "Processing was stopped. To start it over, click on Process";

std::string dropTip(const std::string& database) {
    return "Drops the table \"users\" of the database \"" + database + "\"";
}

class ResultsWindow : public testing::Test, protected test::Results {
  protected:
    void writeTree() {
        for (const char* name : {"a/1.php", "a/2.php", "b/3.php", "b/4.php"})
            folder.write(name, "users orders");
    }
    // What the user can press, in a fixed order.
    static std::string enabled() {
        auto& w = winResults();
        std::string names;
        for (PushButton* button : {&w.butExport, &w.butPrint, &w.butNotFound, &w.butDropTable,
                                   &w.butViewData, &w.butViewScript})
            if (button->Enabled) names += button->name().substr(3) + " ";
        return names;
    }
    static void pressCancelRun() { winResults().butCancelRun.userPressed(); }
};

TEST_F(ResultsWindow, ARunFromStartToEnd) {
    writeTree();
    program.platform.expectBox("Finished");
    go({"users", "none"});
    auto& w = winResults();
    EXPECT_EQ(program.db->databaseNames, std::vector<std::string>{"d"});
    EXPECT_TRUE(w.searching);
    EXPECT_EQ(w.butCancelRun.Caption.get(), "Stop");
    EXPECT_TRUE(w.pwInitializing.Visible);
    EXPECT_FALSE(w.ProgressBar1.Visible);
    stepUntil([&] { return w.lblProgress.Caption.get().starts_with("Gathering File #"); });
    EXPECT_EQ(w.ProgressBar1.Value, -1);
    stepUntil([&] { return processing(folder.path("a")); });
    EXPECT_FALSE(w.pwInitializing.Visible);
    EXPECT_TRUE(w.ProgressBar1.Visible);
    EXPECT_EQ(w.ProgressBar1.Maximum, 4);
    finish();
    EXPECT_EQ(w.ProgressBar1.Value, 4);
    EXPECT_FALSE(w.ProgressBar1.Visible);
    EXPECT_FALSE(w.searching);
    EXPECT_EQ(w.lblProgress.Caption.get(), "Finished");
    EXPECT_EQ(w.butCancelRun.Caption.get(), "Process");
    EXPECT_EQ(enabled(), "Export Print NotFound ");
    EXPECT_EQ(program.platform.beeps, 1);
    EXPECT_EQ(program.db->openCursors, 1);
}

TEST_F(ResultsWindow, AnEmptyListEndsWithNothingFound) {
    writeTree();
    goToEnd({});
    EXPECT_EQ(enabled(), "Export Print ");
    EXPECT_EQ(program.platform.beeps, 0);

    program.db->fails("show tables in d", "no such database");
    program.platform.expectBox("no such database");
    program.platform.expectBox("Nothing was found");
    winResults().init("d", GetFolderItem(folder.path(), 0));
    finish();
}

TEST_F(ResultsWindow, ProcessRunsOverAnEmptyList) {
    writeTree();
    folder.write("a.tmp", "gone by the second run");
    goToEnd({"users"});
    std::filesystem::remove(folder.path("a.tmp"));
    winResults().lstResults.userSelected(0);
    program.platform.expectBox("Nothing was found");
    pressCancelRun();
    auto& w = winResults();
    EXPECT_EQ(w.lstResults.ListCount(), 0);
    EXPECT_TRUE(w.pwInitializing.Visible);
    EXPECT_EQ(w.butCancelRun.Caption.get(), "Stop");
    EXPECT_EQ(enabled(), "NotFound ViewScript ");
    finish();
    EXPECT_EQ(enabled(), "Export Print ViewScript ");
    EXPECT_EQ(program.db->statements.size(), 1U);
}

TEST_F(ResultsWindow, ASecondGoAddsItsRowsBehindTheOld) {
    writeTree();
    goToEnd({"users"});
    folder.write("b/5.php", "users");
    class Other : public Window {};
    Windows::get().instance<Other>();
    program.platform.expectBox("Finished");
    winResults().lstResults.userSelected(0);
    EXPECT_EQ(winResults().butDropTable.toolTip.get(), dropTip("d"));
    program.db->answers("show tables in new", {"Tables_in_new"}, {{"users"}, {"none"}});
    winResults().init("new", GetFolderItem(folder.path(), 0));
    EXPECT_EQ(winResults().butDropTable.toolTip.get(), dropTip("new"));
    EXPECT_EQ(Windows::get().front(), &winResults());
    EXPECT_EQ(winResults().butCancelRun.Caption.get(), "Stop");
    finish();
    EXPECT_EQ(column(0), "users|users|none|");
    EXPECT_EQ(column(1),
              "1.php,2.php,3.php,4.php,5.php,|1.php,2.php,3.php,4.php,5.php,|"
              "Not Found Yet|");
}

TEST_F(ResultsWindow, ASecondGoDuringARunAddsRowsAndRaises) {
    writeTree();
    go({"users"});
    EXPECT_THROW(go({"orders"}), ThreadAlreadyRunningException);
    EXPECT_EQ(column(0), "users|orders|");
    pressCancelRun();
}

TEST_F(ResultsWindow, StopLeavesWhatWasFoundAndRunsNoFinished) {
    writeTree();
    go({"users", "none"});
    stepUntil([&] { return processing(folder.path("b")); });
    pressCancelRun();
    const std::string found = column(1);
    EXPECT_TRUE(found.starts_with("1.php,2.php,")) << found;
    EXPECT_EQ(winResults().lblProgress.Caption.get(), stopped);
    EXPECT_FALSE(winResults().ProgressBar1.Visible);
    EXPECT_FALSE(winResults().pwInitializing.Visible);
    EXPECT_FALSE(winResults().searching);
    EXPECT_EQ(enabled(), "Export Print ");
    finish();
    EXPECT_EQ(column(1), found);
    EXPECT_EQ(winResults().lblProgress.Caption.get(), stopped);
    pressCancelRun();
    EXPECT_TRUE(winResults().pwInitializing.Visible);
    pressCancelRun();
    EXPECT_FALSE(winResults().pwInitializing.Visible);
}

TEST_F(ResultsWindow, StopWithNoRowsEnablesNothing) {
    go({});
    pressCancelRun();
    EXPECT_EQ(enabled(), "");
    EXPECT_EQ(winResults().lblProgress.Caption.get(), stopped);
}

TEST_F(ResultsWindow, AtNoMomentOfAStopDoTheResultColumnsDiffer) {
    for (int file = 0; file < 16; file++)
        folder.write("d" + std::to_string(file % 4) + "/" + std::to_string(file) + ".php",
                     "one two three four five six");
    auto& list = winResults().lstResults;
    auto commas = [](const std::string& text) { return std::count(text.begin(), text.end(), ','); };
    std::mt19937 random(20260103);
    for (int stop = 0; stop < 500; stop++) {
        go({"one", "two", "three", "four", "five", "six", "none"});
        const auto wanted = static_cast<long>(random() % 40);
        stepUntil([&] { return commas(column(1)) >= wanted; });
        for (auto turns = random() % 10; turns > 0; turns--) Thread::Yield();
        winResults().LongProcessThread1->Kill();
        const std::string names = column(1);
        for (int row = 0; row < list.ListCount(); row++) {
            const std::string inNames = list.Cell(row, 1);
            const auto entries = commas(inNames);
            ASSERT_EQ(entries, commas(list.Cell(row, 2))) << "stop " << stop;
            ASSERT_EQ(entries == 0, inNames == "Not Found Yet") << "stop " << stop;
        }
        Thread::Yield();
        ASSERT_EQ(column(1), names);
        list.DeleteAllRows();
    }
}

// The last thing but one that a run does is to wait for the threads that read ahead.
TEST_F(ResultsWindow, AStoppedRunDoesNotFinishWhereverItStands) {
    folder.write("1.php", "users");
    auto shown = [] { return winResults().lblProgress.Caption.get(); };
    std::mt19937 random(20261125);
    for (int stop = 0; stop < 200; stop++) {
        go({"users"});
        auto& run = *winResults().LongProcessThread1;
        run.filesProcessed = 0;
        stepUntil([&] { return run.filesProcessed == 1; });
        for (auto turns = random() % 200; turns > 0; turns--) Thread::Yield();
        const std::string before = shown();
        run.Kill();
        test::runUntil([&] { return run.weak_from_this().use_count() == 1; });
        ASSERT_EQ(shown(), before) << stop;
    }
}

TEST_F(ResultsWindow, ARunOutlivesItsWindowAndTakesTheNext) {
    writeTree();
    program.platform.expectBox("Nothing was found");
    go({"users"});
    stepUntil([&] { return processing(folder.path("a")); });
    std::weak_ptr<WindowContent> first = winResults().weak_from_this();
    winResults().userClosed();
    EXPECT_TRUE(first.expired());
    stepUntil([&] { return !Windows::get().all().empty(); });
    EXPECT_EQ(column(0), "");
    EXPECT_THROW(go({}), ThreadAlreadyRunningException);
    EXPECT_FALSE(winResults().LongProcessThread1->Finished == nullptr);
    finish();
    EXPECT_EQ(winResults().lblProgress.Caption.get(), "Finished");
    EXPECT_EQ(enabled(), "Export Print ");
}

TEST_F(ResultsWindow, StopInTheNextWindowEndsTheRunOfTheClosedOne) {
    writeTree();
    go({"users"});
    stepUntil([&] { return processing(folder.path("a")); });
    winResults().userClosed();
    pressCancelRun();
    EXPECT_FALSE(Thread::anyRunning());
    finish();
    EXPECT_EQ(winResults().lblProgress.Caption.get(), stopped);
}

TEST_F(ResultsWindow, ClosedWhileCountingTheRunEndsTheProgram) {
    writeTree();
    program.platform.expectBox(
        "The application has to end: an error occurred that nothing handles.\n\n"
        "NilObjectException: The results window was closed before the search began.");
    go({"users"});
    stepUntil([] { return winResults().lblProgress.Caption.get().ends_with("#1"); });
    winResults().userClosed();
    finish();
    EXPECT_EQ(program.platform.abortStatus, 1);
}

TEST_F(ResultsWindow, TheSelectionDecidesWhatCanBeDone) {
    writeTree();
    go({"users", "none"});
    auto& list = winResults().lstResults;
    list.userSelected(0);
    EXPECT_EQ(enabled(), "ViewData ") << "not found so far";
    stepUntil([&] { return processing(folder.path("b")); });
    EXPECT_EQ(enabled(), "ViewData ") << "until the selection changes";
    list.userSelected(1);
    list.userSelected(0);
    EXPECT_EQ(enabled(), "ViewData ViewScript ");
    program.platform.expectBox("Finished");
    finish();
    EXPECT_EQ(enabled(), "Export Print NotFound ViewData ViewScript ");
    list.userSelected(1);
    EXPECT_EQ(enabled(), "Export Print NotFound DropTable ViewData ");
    list.userSelected(-1);
    EXPECT_EQ(enabled(), "Export Print NotFound ViewScript ");
}

TEST_F(ResultsWindow, OnlyNotFoundRowsRemainInTheirOrder) {
    writeTree();
    goToEnd({"n1", "users", "n2", "orders", "users", "n3"});
    winResults().lstResults.userSelected(2);
    winResults().butNotFound.userPressed();
    EXPECT_EQ(column(0), "n1|n2|n3|");
    EXPECT_EQ(winResults().lstResults.ListIndex, 1);
    winResults().butNotFound.userPressed();
    EXPECT_EQ(column(0), "n1|n2|n3|");
    EXPECT_TRUE(winResults().butNotFound.Enabled);
}

TEST_F(ResultsWindow, RowsAreSortedByTheUserOnlyBetweenRuns) {
    writeTree();
    go({"b", "a"});
    winResults().lstResults.userClickedHeading(0);
    EXPECT_EQ(column(0), "b|a|");
    program.platform.expectBox("Finished");
    finish();
    winResults().lstResults.userClickedHeading(0);
    EXPECT_EQ(column(0), "a|b|");
}

TEST_F(ResultsWindow, ItsFrameIsStoredOnClosingOnly) {
    goToEnd({});
    auto& first = winResults();
    first.userMoved(-5000, 7);
    first.userResized(900, 500);
    EXPECT_EQ(test::Program::saved("Results"), "none");
    first.userClosed();
    EXPECT_NE(test::Program::saved().find("<integer>-5000</integer>"), std::string::npos);
    goToEnd({});
    EXPECT_EQ(winResults().Left, -5000);
    EXPECT_EQ(winResults().Top, 7);
    EXPECT_EQ(winResults().Width, 900);
    EXPECT_EQ(winResults().lstResults.Width, 680 + 900 - 715);
    EXPECT_EQ(winResults().butPrint.Left, 482 + 900 - 715);
}

TEST_F(ResultsWindow, CloseInTheMenuIsOffInFrontOfIt) {
    goToEnd({});
    program.app.userChoseMenu("FileClose");
    EXPECT_EQ(Windows::get().all().size(), 1U);
}

TEST_F(ResultsWindow, QuittingAbandonsTheRunAndOpensNothing) {
    writeTree();
    go({"users"});
    stepUntil([&] { return processing(folder.path("a")); });
    program.app.userChoseMenu("FileQuit");
    EXPECT_EQ(program.platform.exitStatus, 0);
    EXPECT_FALSE(Thread::anyRunning());
    test::runUntil([turns = 0]() mutable { return ++turns > 50; });
    EXPECT_TRUE(Windows::get().all().empty());
    EXPECT_NE(test::Program::saved().find("<key>Results</key>"), std::string::npos);
}

}  // namespace
}  // namespace bracken
