#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "framework/graphics/color.h"

namespace bracken {

// How a piece of text looks.
struct TextStyle {
    bool bold = false;
    bool outline = false;
    Color color;
    // False: the field's own colour, whatever `color` says.
    bool coloured = false;

    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

// A piece of text, counted in bytes from 0, whose looks differ from the plain ones.
struct StyleRun {
    int64_t from = 0;
    int64_t length = 0;
    TextStyle style;

    int64_t end() const { return from + length; }
    friend bool operator==(const StyleRun&, const StyleRun&) = default;
};

// The styles of a text: runs in order, none empty, none plain, none overlapping, and no two alike
// side by side. Adding at the end takes constant time.
class TextStyles {
  public:
    const std::vector<StyleRun>& runs() const { return runs_; }
    void clear() { runs_.clear(); }

    // Changes the style of a range, plain or not.
    void apply(int64_t from, int64_t length, const std::function<void(TextStyle&)>& change);

  private:
    std::vector<StyleRun> runs_;
};

}  // namespace bracken
