#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// A small sans-serif bitmap font, drawn by hand so that labels have the same pixels on every
// machine. Capitals are 7 pixels high, descenders reach one below the baseline.
namespace bracken::bitmap_font {

constexpr int rows = 8;
// Rows above the baseline.
constexpr int ascent = 7;

struct Glyph {
    int width;
    // One byte per column, the lowest bit being the top row.
    std::array<uint8_t, 5> columns;

    bool isSet(int column, int row) const {
        return (columns[static_cast<size_t>(column)] >> row & 1) != 0;
    }
};

// An empty box for anything but printable ASCII.
const Glyph& glyph(char character);

// Distance to the next glyph's left edge; a bold glyph is one pixel wider.
int advance(const Glyph& glyph, bool bold);

}  // namespace bracken::bitmap_font
