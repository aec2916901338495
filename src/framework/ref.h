#pragma once

#include <memory>
#include <string>
#include <utility>

#include "framework/exception.h"

namespace bracken {

// A checked reference with shared ownership. It may be nil; using a nil one raises
// NilObjectException. A nil one may remember why it is nil, and the exception then says so.
template <class T>
class Ref {
  public:
    Ref() = default;
    Ref(std::nullptr_t) {}
    Ref(std::shared_ptr<T> object) : object_(std::move(object)) {}
    template <class U>
    Ref(const Ref<U>& other) : object_(other.shared()) {}

    // A nil reference whose exception reads `why`.
    static Ref nilBecause(std::string why) {
        Ref ref;
        ref.why_ = std::make_shared<const std::string>(std::move(why));
        return ref;
    }

    T* operator->() const { return checked(); }
    T& operator*() const { return *checked(); }
    explicit operator bool() const { return object_ != nullptr; }
    friend bool operator==(const Ref& ref, std::nullptr_t) { return ref.object_ == nullptr; }
    friend bool operator==(const Ref& a, const Ref& b) { return a.object_ == b.object_; }

    // The pointer without a check, null for nil.
    T* get() const { return object_.get(); }
    const std::shared_ptr<T>& shared() const { return object_; }

  private:
    T* checked() const {
        if (object_ == nullptr) throw NilObjectException(why_ ? *why_ : std::string());
        return object_.get();
    }

    std::shared_ptr<T> object_;
    std::shared_ptr<const std::string> why_;
};

// The object of a pointer that may be null; NilObjectException if it is.
template <class T>
T& checked(T* object) {
    if (object == nullptr) throw NilObjectException();
    return *object;
}

template <class T, class... Args>
Ref<T> make(Args&&... args) {
    return Ref<T>(std::make_shared<T>(std::forward<Args>(args)...));
}

}  // namespace bracken
