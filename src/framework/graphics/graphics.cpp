#include "framework/graphics/graphics.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "framework/graphics/bitmap_font.h"
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
    int penWidth = std::min(PenWidth, width);
    int penHeight = std::min(PenHeight, height);
    FillRect(x, y, width, penHeight);
    FillRect(x, y, penWidth, height);
    uint32_t value = opaquePixel(ForeColor);
    fill(x, int64_t{y} + height - penHeight, width, penHeight, value);
    fill(int64_t{x} + width - penWidth, y, penWidth, height, value);
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

// Draws one point per step along the major axis, only for steps that are visible, since a line may
// extend far beyond the pixels.
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
        auto minor = static_cast<int64_t>(std::floor(slope * static_cast<double>(step) + 0.5));
        int64_t x = x1 + (steep ? minor : step);
        int64_t y = y1 + (steep ? step : minor);
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
            if (!picture.contains(fromX, fromY)) continue;
            int px = static_cast<int>(fromX);
            int py = static_cast<int>(fromY);
            uint32_t& target = pixels_.at(column, row);
            target = blend(target, picture.pixels().at(px, py), picture.opacity(px, py));
        }
    }
}

void Graphics::DrawString(std::string_view text, int x, int y) {
    int64_t left = x;
    for (char character : text) {
        const bitmap_font::Glyph& glyph = bitmap_font::glyph(character);
        for (int column = 0; column < glyph.width; ++column)
            for (int row = 0; row < bitmap_font::rows; ++row)
                if (glyph.isSet(column, row))
                    fill(left + column, int64_t{y} - bitmap_font::ascent + row, Bold ? 2 : 1, 1,
                         opaquePixel(ForeColor));
        left += bitmap_font::advance(glyph, Bold);
    }
}

double Graphics::StringWidth(std::string_view text) const {
    int64_t width = 0;
    for (char character : text) width += bitmap_font::advance(bitmap_font::glyph(character), Bold);
    return static_cast<double>(width);
}

}  // namespace bracken
