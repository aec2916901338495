#pragma once

#include <functional>

namespace bracken {

// Handles one event of the toolkit: `work` runs holding the baton, an exception that nothing
// catches goes to the one default, a handler left by Quit quits the program, and the program ends
// when nothing is left of it. Main thread; may nest, as in a modal dialog.
void handleEvent(const std::function<void()>& work);

}  // namespace bracken
