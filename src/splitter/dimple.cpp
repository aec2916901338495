#include "splitter/dimple.h"

#include <string>

#include "framework/text/text.h"

namespace bracken {

namespace {

// Percent of full brightness, row by row, -1 for a corner that the ground shows through.
const std::string normal =
    "-1,49, 9,48,-1,"
    "48, 2,22,29,56,"
    "11,37,64,75,65,"
    "57,64,100,100,83,"
    "-1,75,96,84,-1";
const std::string disabled =
    "-1,62,42,62,-1,"
    "61,38,48,51,65,"
    "44,57,71,76,72,"
    "67,70,88,89,80,"
    "-1,77,87,81,-1";

DimplePixels parsed(const std::string& text, double factor) {
    DimplePixels pixels = {};
    int field = 0;
    for (size_t row = 1; row <= 5; ++row)
        for (size_t column = 1; column <= 5; ++column)
            pixels[column][row] = Val(NthField(text, ",", ++field)) / 100 * factor;
    return pixels;
}

}  // namespace

DimplePixels dimplePixels(double factor) {
    return parsed(normal, factor);
}

DimplePixels dimplePixelsDisabled(double factor) {
    return parsed(disabled, factor);
}

}  // namespace bracken
