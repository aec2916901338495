#include "framework/graphics/graphics.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "framework/graphics/bitmap_face.h"
#include "framework/graphics/picture.h"

namespace bracken {

Graphics::Span Graphics::Span::clipped(int64_t from, int64_t length, int size) {
    auto inside = [size](int64_t at) { return static_cast<int>(std::clamp<int64_t>(at, 0, size)); };
    return {inside(from), inside(from + std::max<int64_t>(length, 0))};
}

void Graphics::fill(int64_t x, int64_t y, int64_t width, int64_t height, uint32_t value) {
    Span columns = Span::clipped(x, width, pixels_.width);
    Span rows = Span::clipped(y, height, pixels_.height);
    if (columns.from == columns.to) return;
    for (int row = rows.from; row < rows.to; ++row)
        std::fill_n(&pixels_.at(columns.from, row), columns.to - columns.from, value);
}

void Graphics::FillRect(int x, int y, int width, int height) {
    fill(x, y, width, height, opaquePixel(ForeColor));
}

void Graphics::ClearRect(int x, int y, int width, int height) {
    fill(x, y, width, height, background_);
}

void Graphics::DrawRect(int x, int y, int width, int height) {
    if (width < 1 || height < 1) return;
    int across = std::min(PenWidth, width);
    int down = std::min(PenHeight, height);
    FillRect(x, y, width, down);
    FillRect(x, y, across, height);
    uint32_t value = opaquePixel(ForeColor);
    fill(x, int64_t{y} + height - down, width, down, value);
    fill(int64_t{x} + width - across, y, across, height, value);
}

void Graphics::DrawLine(int x1, int y1, int x2, int y2) {
    if (x1 != x2 && y1 != y2) {
        drawSlope(x1, y1, x2, y2);
        return;
    }
    int64_t width = std::abs(int64_t{x2} - x1) + PenWidth;
    int64_t height = std::abs(int64_t{y2} - y1) + PenHeight;
    fill(std::min(x1, x2), std::min(y1, y2), width, height, opaquePixel(ForeColor));
}

// One point for each step along the longer axis; only the steps that can be seen are taken, since a
// line may reach far beyond the pixels.
void Graphics::drawSlope(int64_t x1, int64_t y1, int64_t x2, int64_t y2) {
    bool steep = std::abs(y2 - y1) > std::abs(x2 - x1);
    if (steep ? y2 < y1 : x2 < x1) {
        std::swap(x1, x2);
        std::swap(y1, y2);
    }
    int64_t start = steep ? y1 : x1;
    int64_t length = (steep ? y2 : x2) - start;
    int pen = steep ? PenHeight : PenWidth;
    int64_t first = std::max<int64_t>(0, -start - pen);
    int64_t last = std::min<int64_t>(length, (steep ? pixels_.height : pixels_.width) - start);
    double slope = static_cast<double>(steep ? x2 - x1 : y2 - y1) / static_cast<double>(length);
    for (int64_t step = first; step <= last; ++step) {
        auto aside = static_cast<int64_t>(std::floor(slope * static_cast<double>(step) + 0.5));
        int64_t x = x1 + (steep ? aside : step);
        int64_t y = y1 + (steep ? step : aside);
        fill(x, y, PenWidth, PenHeight, opaquePixel(ForeColor));
    }
}

void Graphics::DrawPicture(const Picture& picture, int x, int y, int width, int height, int sourceX,
                           int sourceY, int sourceWidth, int sourceHeight) {
    if (width < 1 || height < 1) return;
    Span columns = Span::clipped(x, width, pixels_.width);
    Span rows = Span::clipped(y, height, pixels_.height);
    for (int row = rows.from; row < rows.to; ++row) {
        int64_t fromY = sourceY + (int64_t{row} - y) * sourceHeight / height;
        for (int column = columns.from; column < columns.to; ++column) {
            int64_t fromX = sourceX + (int64_t{column} - x) * sourceWidth / width;
            if (!picture.covers(fromX, fromY)) continue;
            int px = static_cast<int>(fromX);
            int py = static_cast<int>(fromY);
            uint32_t& target = pixels_.at(column, row);
            target = blended(target, picture.pixels().at(px, py), picture.opacity(px, py));
        }
    }
}

void Graphics::DrawString(std::string_view text, int x, int y) {
    int64_t left = x;
    for (char letter : text) {
        const face::Glyph& glyph = face::glyph(letter);
        for (int column = 0; column < glyph.width; ++column)
            for (int row = 0; row < face::rows; ++row)
                if (glyph.inked(column, row))
                    fill(left + column, int64_t{y} - face::ascent + row, Bold ? 2 : 1, 1,
                         opaquePixel(ForeColor));
        left += face::advance(glyph, Bold);
    }
}

double Graphics::StringWidth(std::string_view text) const {
    int64_t width = 0;
    for (char letter : text) width += face::advance(face::glyph(letter), Bold);
    return static_cast<double>(width);
}

}  // namespace bracken
