#include "framework/graphics/pixels.h"

#include <algorithm>

namespace bracken {

void Pixels::reset(int newWidth, int newHeight, uint32_t value) {
    width = std::max(newWidth, 0);
    height = std::max(newHeight, 0);
    argb.assign(static_cast<size_t>(width) * height, value);
}

uint32_t blended(uint32_t under, uint32_t over, unsigned opacity) {
    // Weights in 255ths of 255ths, so that nothing is rounded before the end.
    unsigned overWeight = opacity * 255;
    unsigned underWeight = (under >> 24) * (255 - opacity);
    unsigned sum = overWeight + underWeight;
    if (sum == 0) return clearPixel;
    uint32_t result = (sum + 127) / 255 << 24;
    for (int shift : {0, 8, 16}) {
        unsigned mix = (over >> shift & 0xff) * overWeight + (under >> shift & 0xff) * underWeight;
        result |= (mix + sum / 2) / sum << shift;
    }
    return result;
}

}  // namespace bracken
