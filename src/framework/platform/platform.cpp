#include "framework/platform/platform.h"

#include "framework/exception.h"

namespace bracken {

namespace {

Platform* installed = nullptr;

}  // namespace

Platform& Platform::current() {
    if (installed == nullptr) throw NilObjectException("no platform is installed");
    return *installed;
}

void Platform::install(Platform* platform) {
    installed = platform;
}

}  // namespace bracken
