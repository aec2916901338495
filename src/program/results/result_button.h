#pragma once

#include <functional>
#include <string>

#include "framework/controls/buttons.h"

namespace bracken {

class winResults;

// What has just happened in the results window, after which its buttons may be pressed or not.
enum class ResultsEvent { selectionChanged, runFinished, runStopped, runRestarted };

// The button of a result action, disabled until an event enables it. All that is special about it
// stands in the action's file.
class ResultButton : public PushButton {
  public:
    // Sets place, locks, caption, Action and `update`; called once, while the window is made.
    using SetUp = void(class winResults& window, ResultButton& button);

    ResultButton(class winResults& window, std::string name, SetUp& setUp);

    // Enables or disables the button, or leaves it as it is. Must not yield.
    std::function<void(ResultsEvent)> update;

    // For what acts on the selected row: enabled while there is one.
    void enableWithSelection(const class winResults& window);
    // For what reads the whole list: enabled while no run changes it.
    void enableBetweenRuns(const class winResults& window);

  private:
    friend class winResults;
    SetUp& setUp_;
};

}  // namespace bracken
