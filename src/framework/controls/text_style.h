#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "framework/graphics/color.h"

namespace bracken {

// The style of a piece of text.
struct TextStyle {
    bool bold = false;
    bool outline = false;
    Color color;
    // False: the field's own colour, whatever `color` says.
    bool coloured = false;

    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

// A piece of text, counted in bytes from 0, whose style is not the plain one.
struct StyleRun {
    int64_t from = 0;
    int64_t length = 0;
    TextStyle style;

    int64_t end() const { return from + length; }
    friend bool operator==(const StyleRun&, const StyleRun&) = default;
};

// The styles of a text. Adding at the end takes constant time. The runs stand in order, and
// - none is empty or has the plain style,
// - none overlaps another,
// - none touches one of the same style.
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
