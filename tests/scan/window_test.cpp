#include <random>

#include "tests/scan/results.h"
#include "tests/support/outcome.h"

namespace bracken::test {

const std::string stopped = "Processing was stopped. To start it over, click on Process";

class ResultsWindow : public Results {
  protected:
    ResultsWindow() {
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
    // The stop button, what the line above says, and what moves beside it.
    static std::string state() {
        auto& w = winResults();
        return w.butCancelRun.Caption.get() + "|" + w.lblProgress.Caption.get() +
               (w.pwInitializing.Visible ? "|wheel" : "") + (w.ProgressBar1.Visible ? "|bar" : "") +
               (w.searching ? "|searching" : "");
    }
    static void pressCancelRun() { winResults().butCancelRun.userPressed(); }
};

TEST_F(ResultsWindow, ARunFromStartToEnd) {
    EXPECT_EQ(yieldsOf([&] { go({"users", "none"}); }), 2) << "one for each row";
    EXPECT_EQ(program.db->databaseNames, Row{"d"});
    EXPECT_EQ(state(), "Stop|Gathering Files...|wheel|searching");
    stepUntil([] { return state() == "Stop|Gathering File #2|wheel|searching"; });
    EXPECT_EQ(winResults().ProgressBar1.Value, -1);
    auto& list = winResults().lstResults;
    list.userSelected(0);
    stepInto("a");
    EXPECT_EQ(state(), "Stop|Processing files in " + folder.path("a") + "|bar|searching");
    EXPECT_EQ(winResults().ProgressBar1.Maximum, 4);
    stepInto("b");
    EXPECT_EQ(enabled(), "ViewData ") << "not found when it was selected";
    list.userSelected(1);
    list.userSelected(0);
    EXPECT_EQ(enabled(), "ViewData ViewScript ");
    finish("Finished");
    EXPECT_EQ(winResults().ProgressBar1.Value, 4);
    EXPECT_EQ(state(), "Process|Finished");
    EXPECT_EQ(column(1), "1.php,2.php,3.php,4.php,|Not Found Yet|");
    EXPECT_EQ(program.platform.beeps, 1);
    for (const auto& [row, names] :
         {std::pair(0, "ViewData ViewScript "), {1, "DropTable ViewData "}, {-1, "ViewScript "}}) {
        list.userSelected(row);
        EXPECT_EQ(enabled(), std::string("Export Print NotFound ") + names);
    }
}

TEST_F(ResultsWindow, ProcessRunsOverAnEmptyList) {
    folder.write("a.tmp", "gone by the second run");
    go({"users"});
    finish("Finished");
    std::filesystem::remove(folder.path("a.tmp"));
    winResults().lstResults.userSelected(0);
    pressCancelRun();
    EXPECT_EQ(winResults().lstResults.ListCount(), 0);
    EXPECT_EQ(state(), "Stop|Finished|wheel|searching");
    EXPECT_EQ(enabled(), "NotFound ViewScript ");
    stepUntil([] { return state() != "Stop|Finished|wheel|searching"; });
    EXPECT_EQ(state(), "Stop|Gathering Files...|wheel|searching");
    finish("Nothing was found");
    EXPECT_EQ(enabled(), "Export Print ViewScript ");
    EXPECT_EQ(program.platform.beeps, 1) << "for the first alone";
    EXPECT_EQ(program.db->statements.size(), 1U);
}

TEST_F(ResultsWindow, ASecondGoAddsItsRowsBehindTheOld) {
    go({"users"});
    finish("Finished");
    folder.write("b/5.php", "users");
    winResults().lstResults.userSelected(0);
    const std::string& tip = winResults().butDropTable.toolTip.get();
    EXPECT_EQ(tip, "Drops the table \"users\" of the database \"d\"");
    program.db->answers("show tables in new", {"Tables_in_new"}, {{"users"}, {"none"}});
    const Ref<FolderItem> folderItem = GetFolderItem(folder.path(), 0);
    winResults().init("new", folderItem);
    EXPECT_EQ(tip, "Drops the table \"users\" of the database \"new\"");
    EXPECT_THROW(go({"orders"}), ThreadAlreadyRunningException);
    program.db->fails("show tables in gone", "no such database");
    program.platform.expectBox("no such database");
    EXPECT_THROW(winResults().init("gone", folderItem), ThreadAlreadyRunningException);
    finish("Finished");
    EXPECT_EQ(column(0), "users|users|none|orders|");
    const std::string all = "1.php,2.php,3.php,4.php,5.php,|";
    EXPECT_EQ(column(1), all + all + "Not Found Yet|1.php,2.php,3.php,4.php,|");
}

TEST_F(ResultsWindow, StopLeavesWhatWasFoundAndRunsNoFinished) {
    go({});
    pressCancelRun();
    EXPECT_EQ(enabled(), "") << "with no rows";
    go({"users", "none"});
    stepInto("b");
    pressCancelRun();
    const std::string found = column(1);
    EXPECT_TRUE(found.starts_with("1.php,2.php,")) << found;
    EXPECT_EQ(enabled(), "Export Print ");
    EXPECT_EQ(state(), "Process|" + stopped);
    pressCancelRun();
    EXPECT_EQ(state(), "Stop|" + stopped + "|wheel|searching");
    pressCancelRun();
    EXPECT_EQ(state(), "Process|" + stopped);
}

// Wherever it stands: also where it waits for the threads that read ahead, as its last act but one.
TEST_F(ResultsWindow, AStoppedRunLeavesTheTwoResultColumnsAlikeAndDoesNotFinish) {
    auto& list = winResults().lstResults;
    const auto entriesOf = [&](int row, int column) {
        const std::string text = list.Cell(row, column);
        return std::count(text.begin(), text.end(), ',');
    };
    std::mt19937 random(20260103);
    for (int stop = 0; stop < 200; stop++) {
        go({"users", "orders", "r", "none"});
        auto& run = *winResults().LongProcessThread1;
        for (auto turns = random() % 120; turns > 0; turns--) Thread::Yield();
        run.Kill();
        const std::string before = column(1) + state();
        for (int row = 0; row < list.ListCount(); row++) {
            const auto entries = entriesOf(row, 1);
            ASSERT_EQ(entries, entriesOf(row, 2)) << "stop " << stop;
            ASSERT_EQ(entries == 0, list.cellText(row, 1) == notFoundYet) << "stop " << stop;
        }
        runUntil([&] { return run.weak_from_this().use_count() == 1; });
        ASSERT_EQ(column(1) + state(), before) << "stop " << stop;
        list.DeleteAllRows();
    }
}

TEST_F(ResultsWindow, ARunOutlivesItsWindowAndTakesTheNext) {
    for (bool stop : {false, true}) {
        go({"users"});
        stepInto("a");
        const std::weak_ptr<WindowContent> first = winResults().weak_from_this();
        winResults().userMoved(7, stop ? 8 : 9);
        winResults().userClosed();
        EXPECT_TRUE(first.expired());
        stepUntil([&] { return stop || !Windows::get().all().empty(); });
        EXPECT_EQ(column(0), "");
        EXPECT_THROW(go({}), ThreadAlreadyRunningException);
        EXPECT_EQ(winResults().Top, stop ? 8 : 9) << "where the one before stood";
        if (stop)
            pressCancelRun();
        else
            finish("Nothing was found");
        EXPECT_FALSE(Thread::anyRunning());
        EXPECT_EQ(winResults().lblProgress.Caption.get(), stop ? stopped : "Finished");
    }
}

TEST_F(ResultsWindow, ClosedWhileCountingTheRunEndsTheProgram) {
    go({"users"});
    stepUntil([] { return winResults().lblProgress.Caption.get().ends_with("#1"); });
    winResults().userClosed();
    finish(ended + ": The results window was closed before the search began.");
    EXPECT_EQ(program.platform.abortStatus, 1);
}

TEST_F(ResultsWindow, QuittingAbandonsTheRunAndOpensNothing) {
    go({"users"});
    stepInto("a");
    program.app.userChoseMenu("FileQuit");
    EXPECT_EQ(program.platform.exitStatus, 0);
    runUntil([turns = 0]() mutable { return ++turns > 50; });
    EXPECT_TRUE(Windows::get().all().empty());
    EXPECT_EQ(Program::saved("Results"), "") << "where it stood";
}

TEST_F(ResultsWindow, OnlyNotFoundRowsRemainInTheirOrder) {
    go({"n2", "users", "n1", "orders", "users", "n3"});
    winResults().lstResults.userClickedHeading(0);
    EXPECT_EQ(winResults().lstResults.cellText(0, 0), "n2") << "not sorted during a run";
    finish("Finished");
    winResults().lstResults.userSelected(2);
    for (const char* shown : {"n2|n1|n3|", "n1|n2|n3|"}) {
        winResults().butNotFound.userPressed();
        EXPECT_EQ(column(0), shown);
        EXPECT_EQ(winResults().lstResults.Text(), "n1");
        winResults().lstResults.userClickedHeading(0);
    }
}

}  // namespace bracken::test
