#pragma once

#include "program/results/win_results.h"
#include "tests/support/program.h"
#include "tests/support/temp_folder.h"

namespace bracken::test {

const std::string ended =
    "The application has to end: an error occurred that nothing handles.\n\nNilObjectException";

// A program with a server that has the database "d", and a folder to search.
class Results : public testing::Test {
  protected:
    // Opens or reuses the results window and starts a run.
    void go(const Row& tables) { go(tables, GetFolderItem(folder.path(), 0)); }
    void go(const Row& tables, const Ref<FolderItem>& where) {
        std::vector<Row> rows;
        for (const std::string& table : tables) rows.push_back({table});
        program.db->answers("show tables in d", {"Tables_in_d"}, rows);
        winResults().init("d", where);
    }
    void finish(const std::string& box) {
        program.platform.expectBox(box);
        runUntil([] { return !Thread::anyRunning(); });
    }
    // Lets the run come to the next of its stopping points again and again, and carries out nothing
    // of what it asks of this thread.
    template <class Condition>
    static void stepUntil(const Condition& condition) {
        while (!condition()) Thread::Yield();
    }
    void stepInto(const std::string& name) {
        const std::string caption = "Processing files in " + folder.path(name);
        stepUntil([&] { return winResults().lblProgress.Caption.get() == caption; });
    }
    static std::string column(int number) {
        std::string cells;
        for (int row = 0; row < winResults().lstResults.ListCount(); row++)
            cells += std::string(winResults().lstResults.Cell(row, number)) + "|";
        return cells;
    }

    // Ends after the runs of the program.
    DescriptorCheck descriptors;
    TempFolder folder;
    Program program;
};

}  // namespace bracken::test
