#pragma once

#include <type_traits>
#include <utility>

#include "framework/threads/baton.h"
#include "framework/threads/thread.h"

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

}  // namespace bracken
