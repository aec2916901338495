#pragma once

#include <cstdint>

namespace bracken {

// An opaque colour.
struct Color {
    uint8_t red = 0;
    uint8_t green = 0;
    uint8_t blue = 0;

    friend bool operator==(const Color&, const Color&) = default;
};

// Each part 0 to 255, clamped to that.
Color RGB(int red, int green, int blue);

// Hue, saturation and value, each 0 to 1 and clamped to that; a hue of 1 is that of 0.
Color HSV(double hue, double saturation, double value);

}  // namespace bracken
