#include <map>

#include "framework/controls/tab_panel.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

// A picture as text: a letter a pixel, '.' for one that lets the window through.
using Art = std::vector<std::string>;
// The grey of each letter, 0 to 255.
using Greys = std::map<char, int>;

Art turned(const Art& art) {
    Art result(art.front().size(), std::string(art.size(), ' '));
    for (size_t row = 0; row < art.size(); ++row)
        for (size_t column = 0; column < art[row].size(); ++column)
            result[column][row] = art[row][column];
    return result;
}

std::string rows(const Pixels& pixels) {
    std::string text;
    for (int y = 0; y < pixels.height; ++y) {
        for (int x = 0; x < pixels.width; ++x) {
            uint32_t value = pixels.at(x, y);
            bool isGrey = (value >> 24) == 0xff && (value & 0xff) == (value >> 8 & 0xff) &&
                          (value & 0xff) == (value >> 16 & 0xff);
            text += value == clearPixel ? "  ." : isGrey ? "" : " ??";
            if (isGrey) text += (value & 0xff) < 100 ? " " : "";
            if (isGrey) text += std::to_string(value & 0xff);
            text += ' ';
        }
        text += '\n';
    }
    return text;
}

Pixels drawn(const Art& art, const Greys& greys) {
    Pixels pixels;
    pixels.reset(static_cast<int>(art.front().size()), static_cast<int>(art.size()), clearPixel);
    for (int y = 0; y < pixels.height; ++y) {
        for (int x = 0; x < pixels.width; ++x) {
            char letter = art[static_cast<size_t>(y)][static_cast<size_t>(x)];
            if (letter == '.') continue;
            auto grey = static_cast<uint8_t>(greys.at(letter));
            pixels.at(x, y) = opaquePixel({grey, grey, grey});
        }
    }
    return pixels;
}

// Upright, centre at column 4 and row 12.
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

// Upright: its centre is that of the control.
Art largeDimple(bool lying) {
    Art art(lying ? 9 : 25, std::string(lying ? 25 : 9, '.'));
    const Art pixels = {".123.", "45678", "9ABCD", "EFGHI", ".JKL."};
    for (size_t row = 0; row < 5; ++row)
        art[(lying ? 2 : 10) + row].replace(lying ? 10 : 2, 5, pixels[row]);
    return art;
}

Greys lettered(const std::vector<int>& values) {
    const std::string letters = "123456789ABCDEFGHIJKL";
    Greys greys;
    for (size_t i = 0; i < values.size(); ++i) greys[letters[i]] = values[i];
    return greys;
}

struct State {
    const char* name;
    int frame;
    bool enabled;
    bool active;
    Greys bars;
    Greys dimples;
    Greys largeDimple;
};

const Greys lightGround = {{'l', 191}, {'m', 158}, {'d', 140}};
const Greys lightGroundOff = {{'l', 221}, {'m', 209}, {'d', 178}};
const Greys darkGround = {{'l', 147}, {'m', 127}, {'d', 107}};
const Greys darkGroundOff = {{'l', 160}, {'m', 140}, {'d', 127}};
const Greys dimples = {{'b', 204}, {'t', 112}, {'w', 153}, {'c', 76}};
const Greys dimplesLit = {{'b', 255}, {'t', 163}, {'w', 204}, {'c', 127}};
const Greys dimplesDark = {{'b', 173}, {'t', 112}, {'w', 153}, {'c', 76}};
const Greys dimplesDarkLit = {{'b', 224}, {'t', 163}, {'w', 204}, {'c', 127}};
// The percentages of the dimple's pixels of 255, a tenth brighter on a light ground.
const Greys pearl = lettered({137, 25,  134, 134, 5,   61,  81,  157, 30,  103, 179,
                              210, 182, 159, 179, 255, 255, 232, 210, 255, 235});
const Greys pearlOff = lettered({173, 117, 173, 171, 106, 134, 143, 182, 123, 159, 199,
                                 213, 201, 187, 196, 246, 249, 224, 215, 244, 227});
const Greys pearlDark = lettered({124, 22,  122, 122, 5,   56,  73,  142, 28,  94, 163,
                                  191, 165, 145, 163, 255, 255, 211, 191, 244, 214});
const Greys pearlDarkOff = lettered({158, 107, 158, 155, 96,  122, 130, 165, 112, 145, 181,
                                     193, 183, 170, 178, 224, 226, 204, 196, 221, 206});

const State states[] = {
    {"light", 0, true, true, lightGround, dimples, pearl},
    {"light, inactive", 0, true, false, lightGroundOff, dimplesLit, pearlOff},
    {"light, disabled", 0, false, true, lightGroundOff, dimples, pearlOff},
    {"light, disabled and inactive", 0, false, false, lightGroundOff, dimples, pearlOff},
    {"dark", 9, true, true, darkGround, dimplesDark, pearlDark},
    {"dark, inactive", 9, true, false, darkGroundOff, dimplesDarkLit, pearlDarkOff},
    {"dark, disabled", 9, false, true, darkGroundOff, dimplesDark, pearlDarkOff},
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
    Art oriented(const Art& upright) const { return vertical() ? upright : turned(upright); }
};
INSTANTIATE_TEST_SUITE_P(Both, Painting, testing::Bool(), orientationName);

TEST_P(Painting, EachHandleInEachState) {
    for (const State& state : states) {
        struct Case {
            int type;
            Art art;
            const Greys& greys;
        };
        const Case cases[] = {{1, oriented(smallBars()), state.bars},
                              {2, oriented(largeBars()), state.bars},
                              {3, oriented(smallDimples()), state.dimples},
                              {4, largeDimple(!vertical()), state.largeDimple},
                              {5, oriented(Art(25, ".........")), state.bars}};
        SmartSplitter& splitterHere = made(state);
        for (const Case& c : cases) {
            splitterHere.setHandleType(c.type);
            EXPECT_EQ(rows(splitterHere.paint()), rows(drawn(c.art, c.greys)))
                << state.name << ", type " << c.type;
        }
    }
}

TEST_P(Painting, ATabPanelIsNoDarkGround) {
    auto& panel = stage.add<TabPanel>("panel", true, {0, 300});
    stage.Frame = 9;
    auto& inside = stage.add<SmartSplitter>("painted", true, {0, 0});
    inside.place(50, 60, vertical() ? 9 : 25, vertical() ? 25 : 9);
    inside.Parent = &panel;
    inside.Event_Open();
    EXPECT_FALSE(inside.handleDimple);
    inside.setHandleType(2);
    EXPECT_EQ(rows(inside.paint()), rows(drawn(oriented(largeBars()), lightGround)));
}

TEST_P(Painting, TheGhostIsAFrameOnlyWhileDragging) {
    SmartSplitter& ghost = made(states[0]);
    ghost.DisableLiveDrag = true;
    ghost.setHandleType(5);
    Art empty = oriented(Art(25, "........."));
    Art frame(25, "m.......m");
    frame.front() = frame.back() = "mmmmmmmmm";
    EXPECT_EQ(rows(ghost.paint()), rows(drawn(empty, lightGround)));
    ghost.userPressed(4, 4);
    EXPECT_EQ(rows(ghost.paint()), rows(drawn(oriented(frame), lightGround)));
    ghost.Top = -3;
    Art cut = oriented(frame);
    // Its upper edge is drawn three pixels above the control.
    cut.front() = cut[1];
    EXPECT_EQ(rows(ghost.paint()), rows(drawn(cut, lightGround)));
    ghost.setConceal(true);
    EXPECT_EQ(rows(ghost.paint()), rows(drawn(empty, lightGround)));
}

TEST_P(Painting, GoesToTheControlAndNotToWhatTheEventBrings) {
    SmartSplitter& painted = made(states[0]);
    Picture other(25, 25, 32);
    const Pixels before = other.pixels();
    class Graphics* brought = nullptr;
    painted.Paint = [&](class Graphics& g) { brought = &g; };
    painted.Event_Paint(other.Graphics);
    EXPECT_EQ(other.pixels().argb, before.argb);
    EXPECT_EQ(brought, &other.Graphics);
}

}  // namespace
}  // namespace bracken::test
