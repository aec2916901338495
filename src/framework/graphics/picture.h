#pragma once

#include <cstdint>
#include <memory>

#include "framework/graphics/graphics.h"
#include "framework/graphics/pixels.h"
#include "framework/ref.h"

namespace bracken {

// An off-screen picture, white at first, that may have a mask: a picture of the same size whose
// greys say how far each pixel is left out, black shown in full and white not at all.
class Picture {
  public:
    Picture(int width, int height, int depth);
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    int Width() const { return pixels_.width; }
    int Height() const { return pixels_.height; }
    // Bits a pixel as they were asked for; pixels have 32 whatever it says.
    int Depth() const { return depth_; }
    class Graphics Graphics;
    // 1: white is see-through.
    int Transparent = 0;

    // The mask; black, that is all shown, when it is made here. Nil if there is none and `create`
    // is false.
    Ref<Picture> Mask(bool create);

    const Pixels& pixels() const { return pixels_; }
    bool covers(int64_t x, int64_t y) const;
    // 0 to 255, of a pixel inside.
    unsigned opacity(int x, int y) const;

  private:
    Pixels pixels_;
    int depth_;
    Ref<Picture> mask_;
};

// Nil if a size is below 1 or there is not enough memory.
Ref<Picture> NewPicture(int width, int height, int depth);

}  // namespace bracken
