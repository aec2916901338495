#pragma once

#include <string>
#include <vector>

#include "framework/windows/windows.h"
#include "program/results/win_results.h"
#include "tests/support/program.h"

namespace bracken::test {

// A program whose results window shows rows of the database "d" as after a run.
class OpenedResults {
  public:
    OpenedResults() : window(winResults()) {
        window.databaseName = "d";
        for (PushButton* button : {&window.butExport, &window.butPrint}) button->Enabled = true;
    }

    void show(const std::vector<std::vector<std::string>>& rows) const {
        for (const auto& row : rows) {
            window.lstResults.AddRow(row[0]);
            window.lstResults.Cell(window.lstResults.LastIndex(), 1) = row[1];
            window.lstResults.Cell(window.lstResults.LastIndex(), 2) = "/hidden,";
        }
    }
    // An open window by its title, null if there is none.
    static Window* opened(const std::string& title) {
        for (auto& open : Windows::get().all())
            if (open->Title.get() == title) return open.get();
        return nullptr;
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
    class winResults& window;
};

}  // namespace bracken::test
