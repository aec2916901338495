#include "framework/graphics/screen.h"

#include "framework/exception.h"
#include "framework/platform/platform.h"

namespace bracken {

ScreenInfo Screen(int index) {
    if (index != 0) throw IndexOutOfRangeException("screen");
    ScreenRect screen = Platform::current().screen();
    return {screen.width, screen.height};
}

}  // namespace bracken
