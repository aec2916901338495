#pragma once

#include <functional>

namespace bracken {

// Handles one event of the toolkit. Main thread; may nest, as in a modal dialog.
// - `work` runs holding the baton.
// - An exception that nothing catches is reported and ends the process, see unhandled.h.
// - A handler left by Quit quits the program.
// - The program ends when no window is open and no run is alive.
void handleEvent(const std::function<void()>& work);

// The same for what the user does to start something and what leaves its widget as it is: a press,
// the close box. Dropped when MainThreadCalls::dropsActions() says so: the toolkit may let it
// through all the same, for assistive programs and just before a run's box comes up.
void handleAction(const std::function<void()>& work);

}  // namespace bracken
