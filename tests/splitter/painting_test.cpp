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
    bool enabled;
    bool active;
    Greys bars;
    Greys dimples;
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
    {"dark, disabled", 9, false, true, darkGreysOff, dimplesDark, largeDimpleOff},
};

class Painting : public SplitterTest {
  protected:
    // A splitter of 9 by 25 pixels that is set up under that state.
    SmartSplitter& made(const State& state) {
        stage.Frame = state.frame;
        auto& result = stage.add<SmartSplitter>("painted", true, {0, 0});
        result.place(50, 60, vertical() ? 9 : 25, vertical() ? 25 : 9);
        result.Event_Open();
        result.Enabled = state.enabled;
        result.Active = state.active;
        return result;
    }
    Art oriented(const Art& art) const { return vertical() ? art : transposed(art); }
};
INSTANTIATE_TEST_SUITE_P(Both, Painting, testing::Bool(), orientationName);

TEST_P(Painting, EachHandleInEachState) {
    for (const State& state : states) {
        struct Case {
            int type;
            Art art;
            Greys greys;
        };
        const Case cases[] = {
            {1, oriented(smallBars()), state.bars},
            {2, oriented(largeBars()), state.bars},
            {3, oriented(smallDimples()), state.dimples},
            {4, largeDimple(!vertical()), largeDimpleGreys(state.largeDimple, state.frame == 9)},
            {5, oriented(Art(25, ".........")), state.bars}};
        SmartSplitter& painted = made(state);
        for (const Case& c : cases) {
            painted.setHandleType(c.type);
            EXPECT_EQ(marked(painted.paint(), c.art, c.greys), c.art)
                << state.name << ", type " << c.type;
        }
    }
}

TEST_P(Painting, ATabPanelIsNoDarkBackground) {
    auto& panel = stage.add<TabPanel>("panel", true, {0, 300});
    stage.Frame = FrameKind::dark;
    auto& inside = stage.add<SmartSplitter>("painted", true, {0, 0});
    inside.place(50, 60, vertical() ? 9 : 25, vertical() ? 25 : 9);
    inside.Parent = &panel;
    inside.Event_Open();
    EXPECT_FALSE(inside.handleDimple);
    inside.setHandleType(2);
    EXPECT_EQ(marked(inside.paint(), oriented(largeBars()), lightGreys), oriented(largeBars()));
}

TEST_P(Painting, TheGhostIsAFrameOnlyWhileDragging) {
    SmartSplitter& ghost = made(states[0]);
    ghost.DisableLiveDrag = true;
    ghost.setHandleType(5);
    Art empty = oriented(Art(25, "........."));
    Art frame(25, "m.......m");
    frame.front() = frame.back() = "mmmmmmmmm";
    EXPECT_EQ(marked(ghost.paint(), empty, lightGreys), empty);
    ghost.userPressed(4, 4);
    EXPECT_EQ(marked(ghost.paint(), oriented(frame), lightGreys), oriented(frame));
    ghost.Top = -3;
    Art cut = oriented(frame);
    // Its upper edge is drawn three pixels above the control.
    cut.front() = cut[1];
    EXPECT_EQ(marked(ghost.paint(), cut, lightGreys), cut);
    ghost.setConceal(true);
    EXPECT_EQ(marked(ghost.paint(), empty, lightGreys), empty);
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
