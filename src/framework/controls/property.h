#pragma once

#include <functional>
#include <utility>

#include "framework/controls/observable.h"
#include "framework/threads/baton.h"

namespace bracken {

// A field of a control that reads and assigns like a plain one. An assignment that changes the
// value marks the control and then calls the hook with the old value. Holding the baton.
template <class T>
class Property {
  public:
    using Hook = std::function<void(const T& old)>;

    Property(Observable& owner, T value, Hook hook = nullptr)
        : owner_(owner), value_(std::move(value)), hook_(std::move(hook)) {}
    Property(const Property&) = delete;

    operator const T&() const { return get(); }
    const T& get() const {
        baton::assertHeld();
        return value_;
    }

    Property& operator=(const Property& other) { return *this = other.get(); }
    Property& operator=(T value) {
        baton::assertHeld();
        if (value == value_) return *this;
        T old = std::exchange(value_, std::move(value));
        owner_.markDirty();
        if (hook_) hook_(old);
        return *this;
    }

  private:
    Observable& owner_;
    T value_;
    Hook hook_;
};

}  // namespace bracken
