#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "framework/graphics/color.h"
#include "framework/graphics/graphics.h"
#include "framework/ref.h"

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

// `over`, with its opacity 0 to 255, composited over `under`.
uint32_t blend(uint32_t under, uint32_t over, unsigned opacity);

// An off-screen picture, white at first, that may have a mask: a picture of the same size whose
// greys set the opacity of each pixel, from black for opaque to white for transparent.
class Picture {
  public:
    Picture(int width, int height, int depth);
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    int Width() const { return pixels_.width; }
    int Height() const { return pixels_.height; }
    // Bits per pixel as requested; the pixels always have 32.
    int Depth() const { return depth_; }
    class Graphics Graphics;
    // 1: white is transparent.
    int Transparent = 0;

    // The mask. If there is none yet, `create` makes one that is black, so all opaque; without
    // `create` it is nil.
    Ref<Picture> Mask(bool create);

    const Pixels& pixels() const { return pixels_; }
    bool contains(int64_t x, int64_t y) const;
    // 0 to 255, of a pixel inside.
    unsigned opacity(int x, int y) const;

  private:
    Pixels pixels_;
    int depth_;
    Ref<Picture> mask_;
};

// Nil if a size is below 1 or there is not enough memory.
Ref<Picture> NewPicture(int width, int height, int depth);

// The size in pixels and the bits per pixel of a screen, for a picture as large as it.
struct ScreenInfo {
    int Width = 0;
    int Height = 0;
    int Depth = 32;
};

// Only the main screen, 0, is known; IndexOutOfRangeException for any other.
ScreenInfo Screen(int index);

}  // namespace bracken
