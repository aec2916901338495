#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "framework/threads/main_thread_calls.h"
#include "program/results/win_results.h"
#include "tests/support/program.h"
#include "tests/support/temp_folder.h"

namespace bracken::test {

// A program with a server that has the database "d", and a folder to search.
class Results {
  public:
    // Opens or reuses the results window and starts a run.
    void go(const std::vector<std::string>& tables) { go(tables, GetFolderItem(folder.path(), 0)); }
    void go(const std::vector<std::string>& tables, const Ref<FolderItem>& where) {
        std::vector<Row> rows;
        for (const std::string& table : tables) rows.push_back({table});
        program.db->answers("show tables in d", {"Tables_in_d"}, rows);
        winResults().init("d", where);
    }
    void finish() {
        runUntil([] { return !Thread::anyRunning(); });
    }
    void goToEnd(const std::vector<std::string>& tables) {
        program.platform.expectBox(tables.empty() ? "Nothing was found" : "Finished");
        go(tables);
        finish();
    }
    // Lets the run come to the next of its stopping points again and again, and carries out nothing
    // of what it asks of this thread.
    template <class Condition>
    static void stepUntil(const Condition& condition) {
        while (!condition()) Thread::Yield();
    }
    static bool processing(const std::string& path) {
        return winResults().lblProgress.Caption.get() == "Processing files in " + path;
    }
    static void setExtensions(const std::string& list) {
        App().prefs->root->SetString("extensions", list);
    }
    static std::string column(int number) {
        std::string cells;
        for (int row = 0; row < winResults().lstResults.ListCount(); row++)
            cells += std::string(winResults().lstResults.Cell(row, number)) + "|";
        return cells;
    }

    TempFolder folder;
    Program program;
};

}  // namespace bracken::test
