#include "framework/controls/observable.h"

#include "framework/platform/platform.h"
#include "framework/threads/baton.h"

namespace bracken {

namespace {

bool frameRequested = false;

}  // namespace

void Observable::markDirty() {
    baton::assertHeld();
    if (dirty_) return;
    dirty_ = true;
    requestFrame();
}

void requestFrame() {
    if (frameRequested) return;
    frameRequested = true;
    Platform::current().modelChanged();
}

void beginFrame() {
    frameRequested = false;
}

}  // namespace bracken
