#pragma once

#include <functional>
#include <type_traits>
#include <utility>

#include "framework/threads/baton.h"
#include "framework/threads/thread.h"

// Calls that wait on the outside world, and so are made without the baton.
namespace bracken {

// Gives the baton up for a scope.
class BatonRelease {
  public:
    BatonRelease() : depth_(baton::giveAll()) {}
    ~BatonRelease() { baton::takeBack(depth_); }
    BatonRelease(const BatonRelease&) = delete;
    BatonRelease& operator=(const BatonRelease&) = delete;

  private:
    int depth_;
};

// Runs `call`, which may block and must touch no model, without the baton, and takes it back. A
// stopping point: a run killed meanwhile unwinds then.
template <class Call>
auto withoutBaton(Call&& call) {
    if constexpr (std::is_void_v<decltype(call())>) {
        {
            BatonRelease released;
            call();
        }
        Thread::leaveIfKilled();
    } else {
        auto result = [&] {
            BatonRelease released;
            return call();
        }();
        Thread::leaveIfKilled();
        return result;
    }
}

// Runs a statement: a `call` that may wait long and must touch no model. An exception out of it is
// passed on.
// - On the main thread with an event loop running, a helper thread makes the call without the baton
//   while the windows go on painting and input is dropped. If Quit is chosen meanwhile, `cancel` is
//   called on the main thread: it must make `call` return soon; then UnwindSignal is thrown.
// - On any other thread, and with no event loop, this is withoutBaton(call).
void blocking(const std::function<void()>& call, const std::function<void()>& cancel);

}  // namespace bracken
