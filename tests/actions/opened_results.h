#pragma once

#include "program/results/win_results.h"
#include "tests/support/outcome.h"
#include "tests/support/program.h"
#include "tests/support/temp_folder.h"

namespace bracken::test {

// A program whose results window shows rows of the database "d" as after a run.
class OpenedResults : public testing::Test {
  protected:
    OpenedResults() {
        window.databaseName = "d";
        for (PushButton* button : {&window.butExport, &window.butPrint}) button->Enabled = true;
    }

    // Adds a row: a table, its files, and their paths.
    void show(const std::string& table, const std::string& files,
              const std::string& paths = "") const {
        window.lstResults.AddRow(table);
        window.lstResults.Cell(window.lstResults.LastIndex(), 1) = files;
        window.lstResults.Cell(window.lstResults.LastIndex(), 2) = paths;
    }
    // Whether a window of that title is open.
    static bool isOpen(const std::string& title) {
        for (auto& open : Windows::get().all())
            if (open->Title.get() == title) return true;
        return false;
    }
    // A list's cells, joined by "|", a line a row.
    static std::string textOf(Listbox& list) {
        std::string text;
        for (int row = 0; row < list.ListCount(); row++) {
            for (int column = 0; column < list.ColumnCount; column++)
                text += std::string(list.cellText(row, column)) + "|";
            text += "\n";
        }
        return text;
    }

    Program program;
    TempFolder folder;
    class winResults& window = winResults();
};

}  // namespace bracken::test
