#include <algorithm>
#include <array>
#include <map>

#include "framework/controls/panels.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

// A picture as text: one letter per pixel, '.' for a transparent one.
using Art = std::vector<std::string>;
// The grey of each letter, 0 to 255.
using Greys = std::map<char, int>;

Art transposed(const Art& art) {
    Art result(art.front().size(), std::string(art.size(), ' '));
    for (size_t row = 0; row < art.size(); ++row)
        for (size_t column = 0; column < art[row].size(); ++column)
            result[column][row] = art[row][column];
    return result;
}

// The expected picture, with a '!' for each pixel that differs.
Art marked(const Pixels& pixels, Art art, const Greys& greys) {
    EXPECT_EQ(pixels.argb.size(), art.size() * art.front().size());
    size_t at = 0;
    for (std::string& row : art) {
        for (char& letter : row) {
            auto grey = static_cast<uint8_t>(letter == '.' ? 0 : greys.at(letter));
            uint32_t expected = letter == '.' ? clearPixel : opaquePixel({grey, grey, grey});
            if (pixels.argb[at++] != expected) letter = '!';
        }
    }
    return art;
}

// Vertical, centre at column 4 and row 12.
Art smallBars() {
    Art art(25, ".........");
    for (size_t row = 7; row <= 17; ++row) art[row] = "..d.d.d..";
    return art;
}

Art largeBars() {
    Art art(25, ".........");
    for (size_t row = 3; row <= 21; ++row) art[row] = "..ml.ml..";
    art[3] = art[21] = "..mm.mm..";
    return art;
}

Art smallDimples() {
    Art art(25, ".........");
    for (size_t centre : {6U, 12U, 18U}) {
        art[centre - 1] = "...btb...";
        art[centre] = "...tcw...";
        art[centre + 1] = "...bwb...";
    }
    return art;
}

// The same pixels in both orientations, at the centre of the control.
Art largeDimple(bool horizontal) {
    Art art(horizontal ? 9 : 25, std::string(horizontal ? 25 : 9, '.'));
    const Art pixels = {".123.", "45678", "9ABCD", "EFGHI", ".JKL."};
    for (size_t row = 0; row < 5; ++row)
        art[(horizontal ? 2 : 10) + row].replace(horizontal ? 10 : 2, 5, pixels[row]);
    return art;
}

// Percentages by pixel of the large dimple, row by row without its corners.
const std::array<int, 21> largeDimpleOn = {49, 9,  48, 48, 2,   22,  29, 56, 11, 37, 64,
                                           75, 65, 57, 64, 100, 100, 83, 75, 96, 84};
const std::array<int, 21> largeDimpleOff = {62, 42, 62, 61, 38, 48, 51, 65, 44, 57, 71,
                                            76, 72, 67, 70, 88, 89, 80, 77, 87, 81};

// A tenth brighter on a light background.
Greys largeDimpleGreys(const std::array<int, 21>& percents, bool dark) {
    const std::string letters = "123456789ABCDEFGHIJKL";
    Greys greys;
    for (size_t i = 0; i < percents.size(); ++i)
        greys[letters[i]] =
            static_cast<int>(std::min(1.0, percents[i] / 100.0 * (dark ? 1.0 : 1.1)) * 255);
    return greys;
}

struct State {
    const char* name;
    int frame;
    bool enabled, active;
    Greys bars, dimples;
    const std::array<int, 21>& largeDimple;
};

const Greys lightGreys = {{'l', 191}, {'m', 158}, {'d', 140}};
const Greys lightGreysOff = {{'l', 221}, {'m', 209}, {'d', 178}};
const Greys darkGreys = {{'l', 147}, {'m', 127}, {'d', 107}};
const Greys darkGreysOff = {{'l', 160}, {'m', 140}, {'d', 127}};
const Greys dimples = {{'b', 204}, {'t', 112}, {'w', 153}, {'c', 76}};
const Greys dimplesLit = {{'b', 255}, {'t', 163}, {'w', 204}, {'c', 127}};
const Greys dimplesDark = {{'b', 173}, {'t', 112}, {'w', 153}, {'c', 76}};
const Greys dimplesDarkLit = {{'b', 224}, {'t', 163}, {'w', 204}, {'c', 127}};

const State states[] = {
    {"light", 0, true, true, lightGreys, dimples, largeDimpleOn},
    {"light, inactive", 0, true, false, lightGreysOff, dimplesLit, largeDimpleOff},
    {"light, disabled", 0, false, true, lightGreysOff, dimples, largeDimpleOff},
    {"light, disabled and inactive", 0, false, false, lightGreysOff, dimples, largeDimpleOff},
    {"dark", 9, true, true, darkGreys, dimplesDark, largeDimpleOn},
    {"dark, inactive", 9, true, false, darkGreysOff, dimplesDarkLit, largeDimpleOff},
};

class Painting : public SplitterTest {
  protected:
    // A splitter of 9 by 25 pixels that is set up under that state.
    SmartSplitter& made(const State& state, RectControl* parent = nullptr) {
        stage.Frame = state.frame;
        auto& result = add<SmartSplitter>("painted", 0, 0);
        result.place(50, 60, vertical() ? 9 : 25, vertical() ? 25 : 9);
        result.Parent = parent;
        result.Event_Open();
        result.Enabled = state.enabled;
        result.Active = state.active;
        return result;
    }
    void expect(SmartSplitter& painted, const Art& art, const Greys& greys,
                const std::string& name) {
        EXPECT_EQ(marked(painted.paint(), art, greys), art) << name;
    }
    Art oriented(const Art& art) const { return vertical() ? art : transposed(art); }
    const Art empty = oriented(Art(25, "........."));
};
INSTANTIATE_TEST_SUITE_P(Both, Painting, testing::Bool(), orientationName);

TEST_P(Painting, EachHandleInEachState) {
    for (const State& state : states) {
        SmartSplitter& painted = made(state);
        const auto show = [&](int type, const Art& art, const Greys& greys) {
            painted.setHandleType(type);
            expect(painted, art, greys, state.name + std::to_string(type));
        };
        show(1, oriented(smallBars()), state.bars);
        show(2, oriented(largeBars()), state.bars);
        show(3, oriented(smallDimples()), state.dimples);
        show(4, largeDimple(!vertical()), largeDimpleGreys(state.largeDimple, state.frame == 9));
        show(5, empty, state.bars);
    }
    SmartSplitter& inside = made(states[4], &add<TabPanel>("panel", 0, 300));
    EXPECT_FALSE(inside.handleDimple);
    inside.setHandleType(2);
    expect(inside, oriented(largeBars()), lightGreys, "a tab panel is no dark background");
}

TEST_P(Painting, TheGhostIsAFrameOnlyWhileDragging) {
    SmartSplitter& ghost = made(states[0]);
    Art frame(25, "m.......m");
    frame.front() = frame.back() = "mmmmmmmmm";
    ghost.setHandleType(5);
    ghost.DisableLiveDrag = true;
    expect(ghost, empty, lightGreys, "before");
    ghost.userPressed(4, 4);
    expect(ghost, oriented(frame), lightGreys, "pressed");
    ghost.Top = -3;
    Art cut = oriented(frame);
    // Its upper edge is drawn three pixels above the control.
    cut.front() = cut[1];
    expect(ghost, cut, lightGreys, "above the window");
    ghost.setConceal(true);
    expect(ghost, empty, lightGreys, "concealed");
    ghost.setConceal(false);
    ghost.userReleased(4, 4);
    expect(ghost, empty, lightGreys, "released");
}

TEST_P(Painting, UsesTheControlsGraphicsNotTheEvents) {
    SmartSplitter& painted = made(states[0]);
    Picture other(25, 25, 32);
    const Pixels before = other.pixels();
    class Graphics* passed = nullptr;
    painted.Paint = [&](class Graphics& g) { passed = &g; };
    painted.Event_Paint(other.Graphics);
    EXPECT_EQ(other.pixels().argb, before.argb);
    EXPECT_EQ(passed, &other.Graphics);
}

}  // namespace
}  // namespace bracken::test
