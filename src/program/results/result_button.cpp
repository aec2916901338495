#include "program/results/result_button.h"

#include <utility>

#include "program/results/win_results.h"

namespace bracken {

ResultButton::ResultButton(class winResults& window, std::string name, SetUp& setUp)
    : PushButton(window, std::move(name)), setUp_(setUp) {}

void ResultButton::enableWithSelection(const class winResults& window) {
    update = [this, &window](ResultsEvent event) {
        if (event == ResultsEvent::selectionChanged) Enabled = window.lstResults.ListIndex >= 0;
    };
}

void ResultButton::enableBetweenRuns(const class winResults& window) {
    update = [this, &window](ResultsEvent event) {
        if (event == ResultsEvent::runFinished) Enabled = true;
        if (event == ResultsEvent::runStopped && window.lstResults.ListCount() > 0) Enabled = true;
        if (event == ResultsEvent::runRestarted) Enabled = false;
    };
}

}  // namespace bracken
