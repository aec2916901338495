#include "framework/graphics/screen.h"

#include "framework/dialogs/platform.h"
#include "framework/exception.h"

namespace bracken {

ScreenInfo Screen(int index) {
    if (index != 0) throw IndexOutOfRangeException("screen");
    ScreenRect screen = Platform::current().screen();
    return {screen.width, screen.height};
}

}  // namespace bracken
