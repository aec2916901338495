#pragma once

namespace bracken {

// One of the desktop's screens.
struct ScreenInfo {
    // Pixels.
    int Width = 0;
    int Height = 0;
    // Bits a pixel.
    int Depth = 32;
};

// Screen 0 is the main one, the only one that is known of.
ScreenInfo Screen(int index);

}  // namespace bracken
