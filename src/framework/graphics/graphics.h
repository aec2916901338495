#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "framework/graphics/color.h"

namespace bracken {

class Picture;
struct Pixels;

// Draws on pixels, exactly and without anti-aliasing: every pixel that is touched gets ForeColor,
// and what lies outside is clipped. Any coordinates are accepted; a size below 1 draws nothing.
class Graphics {
  public:
    // Draws on `pixels`, which must outlive this; ClearRect fills with `background`.
    Graphics(Pixels& pixels, uint32_t background) : pixels_(pixels), background_(background) {}
    Graphics(const Graphics&) = delete;
    Graphics& operator=(const Graphics&) = delete;

    Color ForeColor;
    // The pen is a rectangle with its top left corner at each point.
    int PenWidth = 1;
    int PenHeight = 1;
    // The font requested. There is only one, a sans-serif of 9 pixels, which Bold thickens.
    std::string TextFont;
    int TextSize = 0;
    bool Bold = false;

    // Includes both ends, so a line from a pixel to itself is that pixel.
    void DrawLine(int x1, int y1, int x2, int y2);
    // A frame inside the rectangle's edges, as thick as the pen.
    void DrawRect(int x, int y, int width, int height);
    void FillRect(int x, int y, int width, int height);
    void ClearRect(int x, int y, int width, int height);
    // A part of `picture`, through its mask, scaled to the target's size by the nearest pixel.
    void DrawPicture(const Picture& picture, int x, int y, int width, int height, int sourceX,
                     int sourceY, int sourceWidth, int sourceHeight);
    // ASCII; x is the left end, y the baseline.
    void DrawString(std::string_view text, int x, int y);
    double StringWidth(std::string_view text) const;

  private:
    // The half-open range [from, to), clipped to [0, size).
    struct Span {
        int from;
        int to;
        static Span clipped(int64_t from, int64_t length, int size);
    };

    void fill(int64_t x, int64_t y, int64_t width, int64_t height, uint32_t value);
    void drawSlope(int64_t x1, int64_t y1, int64_t x2, int64_t y2);

    Pixels& pixels_;
    uint32_t background_;
};

}  // namespace bracken
