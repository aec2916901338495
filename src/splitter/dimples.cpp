#include <string>

#include "framework/text/text.h"
#include "splitter/smart_splitter.h"

namespace bracken {

namespace {

// Brightness in percent, row by row; -1 for a corner, which is transparent.
const std::string normalPixels =
    "-1,49, 9,48,-1,"
    "48, 2,22,29,56,"
    "11,37,64,75,65,"
    "57,64,100,100,83,"
    "-1,75,96,84,-1";
const std::string disabledPixels =
    "-1,62,42,62,-1,"
    "61,38,48,51,65,"
    "44,57,71,76,72,"
    "67,70,88,89,80,"
    "-1,77,87,81,-1";

}  // namespace

SmartSplitter::DimplePixels SmartSplitter::parseDimplePixels(const std::string& text,
                                                             double factor) {
    DimplePixels pixels = {};
    int field = 0;
    for (size_t row = 1; row <= 5; ++row)
        for (size_t column = 1; column <= 5; ++column)
            pixels[column][row] = Val(NthField(text, ",", ++field)) / 100 * factor;
    return pixels;
}

void SmartSplitter::fillDimplePixels() {
    double factor = backgroundDark ? 1.0 : 1.1;
    dimplePixelValue = parseDimplePixels(normalPixels, factor);
    dimplePixelValueDisabled = parseDimplePixels(disabledPixels, factor);
}

void SmartSplitter::drawDimple(int x, int y) {
    if (handleLarge)
        drawLargeDimple(x, y);
    else
        drawSmallDimple(x, y);
}

void SmartSplitter::drawLargeDimple(int x, int y) {
    const DimplePixels& pixels = looksEnabled() ? dimplePixelValue : dimplePixelValueDisabled;
    for (int row = 1; row <= 5; ++row) {
        for (int column = 1; column <= 5; ++column) {
            double value = pixels[static_cast<size_t>(column)][static_cast<size_t>(row)];
            if (value < 0) continue;
            Graphics.ForeColor = grey(value);
            int px = x - 3 + column;
            int py = y - 3 + row;
            Graphics.DrawLine(px, py, px, py);
        }
    }
}

void SmartSplitter::drawSmallDimple(int x, int y) {
    // Unlike the other marks: lighter if inactive, not if disabled.
    double lift = (!Active && Enabled) || !initializedSmartSplitter ? 0.2 : 0.0;
    Graphics.ForeColor = grey((backgroundDark ? 0.68 : 0.8) + lift);
    Graphics.FillRect(x - 1, y - 1, 3, 3);
    Graphics.ForeColor = grey(0.44 + lift);
    Graphics.DrawLine(x - 1, y, x, y - 1);
    Graphics.ForeColor = grey(0.6 + lift);
    Graphics.DrawLine(x, y + 1, x + 1, y);
    Graphics.ForeColor = grey(0.3 + lift);
    Graphics.DrawLine(x, y, x, y);
}

}  // namespace bracken
