#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "framework/graphics/color.h"

namespace bracken {

// A rectangle of pixels, row by row from the top, each 0xAARRGGBB with straight alpha.
struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> argb;

    // A size below 0 counts as 0.
    void reset(int newWidth, int newHeight, uint32_t value);
    // The pixel must lie inside.
    uint32_t& at(int x, int y) { return argb[static_cast<size_t>(y) * width + x]; }
    uint32_t at(int x, int y) const { return argb[static_cast<size_t>(y) * width + x]; }
};

constexpr uint32_t clearPixel = 0;

constexpr uint32_t opaquePixel(Color color) {
    return 0xff000000U | static_cast<uint32_t>(color.red) << 16 |
           static_cast<uint32_t>(color.green) << 8 | color.blue;
}

// `over`, with its opacity 0 to 255, laid over `under`.
uint32_t blended(uint32_t under, uint32_t over, unsigned opacity);

}  // namespace bracken
