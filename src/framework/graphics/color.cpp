#include "framework/graphics/color.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "framework/text/text.h"

namespace bracken {

namespace {

uint8_t component(int value) {
    return static_cast<uint8_t>(std::clamp(value, 0, 255));
}

int scaled(double fraction) {
    return toInt32(fraction * 255);
}

}  // namespace

Color RGB(int red, int green, int blue) {
    return {component(red), component(green), component(blue)};
}

Color HSV(double hue, double saturation, double value) {
    hue = std::clamp(hue, 0.0, 1.0) * 6;
    saturation = std::clamp(saturation, 0.0, 1.0);
    value = std::clamp(value, 0.0, 1.0);
    double sector = std::floor(hue);
    double fraction = hue - sector;
    int high = scaled(value);
    int low = scaled(value * (1 - saturation));
    int falling = scaled(value * (1 - saturation * fraction));
    int rising = scaled(value * (1 - saturation * (1 - fraction)));
    std::array<Color, 6> sectors = {RGB(high, rising, low), RGB(falling, high, low),
                                    RGB(low, high, rising), RGB(low, falling, high),
                                    RGB(rising, low, high), RGB(high, low, falling)};
    return sectors[static_cast<size_t>(sector) % 6];
}

}  // namespace bracken
