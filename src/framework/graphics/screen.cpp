#include "framework/graphics/screen.h"

#include "framework/dialogs/platform.h"
#include "framework/exception.h"

namespace bracken {

ScreenInfo Screen(int index) {
    if (index != 0) throw IndexOutOfRangeException("screen");
    ScreenRect screen = Platform::current().screen();
    // Up to the far corner: window coordinates may use all of what the windows may cover.
    return {screen.left + screen.width, screen.top + screen.height};
}

}  // namespace bracken
