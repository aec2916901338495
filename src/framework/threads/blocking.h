#pragma once

#include <functional>

namespace bracken {

// Runs `call`, which may wait long on the outside world and must touch no model, without the baton,
// and takes the baton back. On the main thread with an event loop running, a helper thread makes
// the call while the windows go on painting and input is dropped. If Quit is chosen meanwhile,
// `cancel` is called on the main thread: it must make `call` return soon; then QuitSignal is
// thrown. An exception out of `call` is passed on. On any other thread, and with no event loop,
// `call` runs in place; a run killed meanwhile unwinds on return.
void blocking(const std::function<void()>& call, const std::function<void()>& cancel);

}  // namespace bracken
