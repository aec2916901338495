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

// Components are clamped to 0 to 255.
Color RGB(int red, int green, int blue);

// Components are clamped to 0 to 1; hue 1 equals hue 0.
Color HSV(double hue, double saturation, double value);

}  // namespace bracken
