#pragma once

#include "framework/exception.h"

namespace bracken {

// The object of a pointer that may be null; NilObjectException if it is.
template <class T>
T& checked(T* object) {
    if (object == nullptr) throw NilObjectException();
    return *object;
}

}  // namespace bracken
