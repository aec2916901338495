#pragma once

#include <functional>

namespace bracken {

// Handles one event of the toolkit: `work` runs holding the baton, an exception that nothing
// catches goes to the one default, a handler left by Quit quits the program, and the program ends
// when nothing is left of it. Main thread; may nest, as in a modal dialog.
void handleEvent(const std::function<void()>& work);

// The same for what the user does to start something: a press, a choice, the close box. Dropped
// while a statement is under way, or from a run's call for a box until that has been answered: the
// toolkit may let it through all the same, for assistive programs and just before the box comes up.
void handleAction(const std::function<void()>& work);

}  // namespace bracken
