#pragma once

#include <functional>
#include <utility>

#include "framework/threads/baton.h"

namespace bracken {

// An object that views show: dirty once it differs from what they have shown. Holding the baton.
class Observable {
  public:
    Observable() = default;
    virtual ~Observable() = default;
    Observable(const Observable&) = delete;
    Observable& operator=(const Observable&) = delete;

    // The first mark since the views looked requests a frame.
    void markDirty();
    // Whether it was dirty; clears the mark. For the views.
    bool takeDirty() { return std::exchange(dirty_, false); }

  private:
    bool dirty_ = false;
};

// Asks the platform for a frame, unless one has been requested that has not begun yet.
void requestFrame();
// A frame begins: what gets dirty from now on requests the next one.
void beginFrame();

// A field of an observable object that reads and assigns like a plain one. Assigning another value
// marks the object dirty and then calls the hook with the old value. Holding the baton.
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
