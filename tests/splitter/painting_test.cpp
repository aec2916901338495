#include "tests/splitter/stage.h"

namespace bracken::test {

// What a splitter of 9 by 25 pixels shows on two lines of pixels: across its middle, and along it
// in one column. '.' is a transparent pixel, '?' any.
struct Handle {
    int type;
    const char* across;
    int column;
    const char* along;
};
const Handle handles[] = {
    {1, "..d.d.d..", 2, ".......ddddddddddd......."},
    {2, "..ml.ml..", 3, "...mlllllllllllllllllm..."},
    {3, "...tcw...", 3, ".....btb...btb...btb....."},
    {4, "..??p??..", 4, "..........??p??.........."},
    {5, ".........", 4, "........................."},
};

// The greys of these letters: bars, small dimples, the middle of the large one.
const std::string letters = "lmdbtwcp";
using Greys = std::array<uint8_t, 8>;

struct State {
    const char* name;
    int frame;
    bool enabled, active;
    Greys greys;
};
const State states[] = {
    {"light", 0, true, true, {191, 158, 140, 204, 112, 153, 76, 179}},
    {"light, inactive", 0, true, false, {221, 209, 178, 255, 163, 204, 127, 199}},
    {"light, disabled", 0, false, true, {221, 209, 178, 204, 112, 153, 76, 199}},
    {"dark", 9, true, true, {147, 127, 107, 173, 112, 153, 76, 163}},
    {"dark, inactive", 9, true, false, {160, 140, 127, 224, 163, 204, 127, 181}},
};

class Painting : public SplitterTest {
  protected:
    // A splitter that is set up under that state.
    SmartSplitter& made(const State& state) {
        stage.Frame = state.frame;
        auto& result = add<SmartSplitter>("painted", 0, 9);
        cross().setExtent(result, 25);
        result.setHandleType(0);
        result.Enabled = state.enabled;
        result.Active = state.active;
        return result;
    }
    void expect(SmartSplitter& painted, const Handle& handle, const State& state = states[0]) {
        SCOPED_TRACE(state.name + std::to_string(handle.type));
        const Pixels& pixels = painted.paint();
        for (int i = 0; i < 9; ++i) expectPixel(pixels, i, 12, handle.across[i], state);
        for (int i = 0; i < 25; ++i) expectPixel(pixels, handle.column, i, handle.along[i], state);
    }
    void expectPixel(const Pixels& pixels, int across, int along, char letter, const State& state) {
        if (letter == '?') return;
        const uint8_t grey = letter == '.' ? 0 : state.greys.at(letters.find(letter));
        EXPECT_EQ(vertical() ? pixels.at(across, along) : pixels.at(along, across),
                  letter == '.' ? clearPixel : opaquePixel({grey, grey, grey}))
            << across << ", " << along;
    }
};
INSTANTIATE_TEST_SUITE_P(Both, Painting, testing::Bool(), orientationName);

TEST_P(Painting, EachHandleInEachState) {
    for (const State& state : states)
        for (const Handle& handle : handles) {
            SmartSplitter& painted = made(state);
            painted.setHandleType(handle.type);
            expect(painted, handle, state);
        }
}

TEST_P(Painting, TheGhostIsAFrameOnlyWhileDragging) {
    SmartSplitter& painted = made(states[0]);
    painted.setHandleType(5);
    painted.DisableLiveDrag = true;
    painted.userPressed(4, 4);
    expect(painted, {5, "m.......m", 0, "mmmmmmmmmmmmmmmmmmmmmmmmm"});
    painted.setConceal(true);
    expect(painted, handles[4]);
    painted.setConceal(false);
    painted.userReleased(4, 4);
    expect(painted, handles[4]);
}

}  // namespace bracken::test
