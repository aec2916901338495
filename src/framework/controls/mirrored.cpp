#include "framework/controls/property.h"
#include "framework/controls/windows.h"

namespace bracken {

void Mirrored::markChanged() {
    baton::assertHeld();
    if (changed_) return;
    changed_ = true;
    Windows::open().announceChange();
}

}  // namespace bracken
