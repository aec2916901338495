#pragma once

#include <functional>
#include <utility>

#include "framework/threads/baton.h"

namespace bracken {

// Something that views mirror: remembers that it has changed since they last looked.
class Mirrored {
  public:
    Mirrored() = default;
    virtual ~Mirrored() = default;
    Mirrored(const Mirrored&) = delete;
    Mirrored& operator=(const Mirrored&) = delete;

    // Marks the object; the first mark since the views looked asks for a frame.
    void markChanged();
    // Whether it has been marked, and clears the mark. For the views.
    bool takeChanged() { return std::exchange(changed_, false); }

  private:
    bool changed_ = false;
};

// A field of a control that reads and assigns like a plain one. An assignment that changes the
// value marks the control and then calls the hook with the old value. Holding the baton.
template <class T>
class Property {
  public:
    using Hook = std::function<void(const T& old)>;

    Property(Mirrored& owner, T value, Hook hook = nullptr)
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
        owner_.markChanged();
        if (hook_) hook_(old);
        return *this;
    }

  private:
    Mirrored& owner_;
    T value_;
    Hook hook_;
};

}  // namespace bracken
