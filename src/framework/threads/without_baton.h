#pragma once

#include <type_traits>
#include <utility>

#include "framework/threads/baton.h"
#include "framework/threads/thread.h"

namespace bracken {

// Gives the baton up for a scope.
class Unheld {
  public:
    Unheld() : depth_(baton::giveAll()) {}
    ~Unheld() { baton::takeBack(depth_); }
    Unheld(const Unheld&) = delete;
    Unheld& operator=(const Unheld&) = delete;

  private:
    int depth_;
};

// Runs `call`, which may block and must touch no model, without the baton, and takes it back. A
// stopping point: a run killed meanwhile unwinds then.
template <class Call>
auto withoutBaton(Call&& call) {
    if constexpr (std::is_void_v<decltype(call())>) {
        {
            Unheld unheld;
            call();
        }
        Thread::leaveIfKilled();
    } else {
        auto result = [&] {
            Unheld unheld;
            return call();
        }();
        Thread::leaveIfKilled();
        return result;
    }
}

}  // namespace bracken
