#pragma once

#include <array>

namespace bracken {

// Brightness of a large dimple's pixels, by column and row from 1 to 5; index 0 is not used. Below
// 0 the ground shows through; above 1 is as bright as 1.
using DimplePixels = std::array<std::array<double, 6>, 6>;

DimplePixels dimplePixels(double factor);
DimplePixels dimplePixelsDisabled(double factor);

}  // namespace bracken
