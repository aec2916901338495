#pragma once

#include <string>
#include <string_view>

#include "framework/graphics/color.h"
#include "framework/graphics/pixels.h"

namespace bracken {

class Picture;

// Draws on pixels, exactly and without anti-aliasing: every pixel that is touched gets ForeColor,
// and what lies outside is cut off. Any coordinates are taken; a size below 1 draws nothing.
class Graphics {
  public:
    // Draws on `pixels`, which must outlive this; ClearRect leaves `background` behind.
    Graphics(Pixels& pixels, uint32_t background) : pixels_(pixels), background_(background) {}
    Graphics(const Graphics&) = delete;
    Graphics& operator=(const Graphics&) = delete;

    Color ForeColor;
    // The pen is a rectangle that hangs right and down from each point.
    int PenWidth = 1;
    int PenHeight = 1;
    // What is asked for. There is one face, a sans-serif for the height of 9 pixels; Bold thickens
    // it.
    std::string TextFont;
    int TextSize = 0;
    bool Bold = false;

    // Both ends included, so a line from a pixel to itself is that pixel.
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
    // The pixels from `from` up to but not including `to`, inside 0 to `size`.
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
