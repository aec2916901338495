#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "framework/windows/windows.h"
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

    // Adds rows: a table, its files, and their paths where they matter.
    void show(const std::vector<Row>& rows) const {
        for (const Row& row : rows) {
            window.lstResults.AddRow(row[0]);
            window.lstResults.Cell(window.lstResults.LastIndex(), 1) = row[1];
            window.lstResults.Cell(window.lstResults.LastIndex(), 2) =
                row.size() > 2 ? row[2] : "/hidden,";
        }
    }
    // An open window by its title, null if there is none.
    static Window* opened(const std::string& title) {
        for (auto& open : Windows::get().all())
            if (open->Title.get() == title) return open.get();
        return nullptr;
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
    // The tables listed, in order, and then the buttons that follow the selection.
    std::string state() const {
        std::string text;
        for (int row = 0; row < window.lstResults.ListCount(); row++)
            text += std::string(window.lstResults.Cell(row, 0)) + " ";
        text += "| ";
        for (PushButton* button :
             {&window.butDropTable, &window.butViewData, &window.butViewScript})
            if (button->Enabled) text += button->Caption.get() + ", ";
        return text;
    }

    Program program;
    TempFolder folder;
    class winResults& window = winResults();
};

}  // namespace bracken::test
