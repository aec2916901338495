#include "framework/graphics/picture.h"

#include <algorithm>
#include <new>

#include "framework/exception.h"
#include "framework/platform/platform.h"

namespace bracken {

namespace {

constexpr uint32_t white = 0xffffffffU;

// A larger picture is refused, since the system grants memory that it does not have.
constexpr int64_t maxPixels = int64_t{1} << 28;

}  // namespace

void Pixels::reset(int newWidth, int newHeight, uint32_t value) {
    width = std::max(newWidth, 0);
    height = std::max(newHeight, 0);
    argb.assign(static_cast<size_t>(width) * height, value);
}

uint32_t blend(uint32_t under, uint32_t over, unsigned opacity) {
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

Picture::Picture(int width, int height, int depth) : Graphics(pixels_, white), depth_(depth) {
    pixels_.reset(width, height, white);
}

Ref<Picture> Picture::Mask(bool create) {
    if (mask_ == nullptr && create) {
        mask_ = make<Picture>(Width(), Height(), depth_);
        mask_->Graphics.FillRect(0, 0, Width(), Height());
    }
    return mask_;
}

bool Picture::contains(int64_t x, int64_t y) const {
    return x >= 0 && y >= 0 && x < pixels_.width && y < pixels_.height;
}

unsigned Picture::opacity(int x, int y) const {
    if (Transparent == 1 && pixels_.at(x, y) == white) return 0;
    return mask_ == nullptr ? 255 : 255 - (mask_->pixels_.at(x, y) & 0xff);
}

Ref<Picture> NewPicture(int width, int height, int depth) {
    if (width < 1 || height < 1 || int64_t{width} * height > maxPixels) return nullptr;
    try {
        return make<Picture>(width, height, depth);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

ScreenInfo Screen(int index) {
    if (index != 0) throw IndexOutOfRangeException("screen");
    ScreenRect screen = Platform::current().screen();
    return {screen.width, screen.height};
}

}  // namespace bracken
