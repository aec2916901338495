#include "framework/graphics/picture.h"

#include <new>

namespace bracken {

namespace {

constexpr uint32_t white = 0xffffffffU;

// A picture beyond this is refused, since the system grants memory that it does not have.
constexpr int64_t maxPixels = int64_t{1} << 28;

}  // namespace

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

bool Picture::covers(int64_t x, int64_t y) const {
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

}  // namespace bracken
