#include <map>

#include "framework/controls/plain_controls.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

// The letter of each colour; a letter of text has others.
const std::map<uint32_t, char> letters = {
    {0xff009600, 'g'}, {0xff000096, 'b'}, {0xffc80000, 'r'}, {0xffffffff, '.'}};

class DebugCanvas : public SplitterTest {
  protected:
    void openWithOverlay() {
        open();
        overlay = &stage.add<CanvasSmartSplitterDebugger>("overlay", true, 0, 1);
        overlay->Event_Open();
        EXPECT_FALSE(overlay->TakesMouse);
        splitter.setDebug(true);
    }
    // By position along the splitter's axis and across it.
    uint32_t pixel(const Pixels& pixels, int along, int across) const {
        return pixels.at(vertical() ? along : across, vertical() ? across : along);
    }
    // Where along the axis the drawing changes its colour.
    std::string line(int across) const {
        const Pixels& pixels = Probe::drawing(*overlay);
        std::string changes;
        char last = '.';
        for (int along = 0; along < 600; ++along) {
            const auto known = letters.find(pixel(pixels, along, across));
            const char letter = known == letters.end() ? '?' : known->second;
            if (letter != last) changes += std::to_string(along) + (last = letter) + " ";
        }
        return changes;
    }

    CanvasSmartSplitterDebugger* overlay = nullptr;
};
INSTANTIATE_TEST_SUITE_P(Both, DebugCanvas, testing::Bool(), orientationName);

TEST_P(DebugCanvas, MarksSplitterZonesAndControls) {
    auto& min = add<GroupBox>("min", 100, 300);
    add<GroupBox>("max", 410, 140);
    openWithOverlay();
    splitter.behave();
    struct Row {
        int across;
        const char *vertical, *horizontal;
    };
    // Frames are two pixels thick. The splitter lies at 400 to 410, its range from 90 to 550, the
    // zones end at 190 and 450, the labels and the range's diagonal cross some rows.
    const Row rows[] = {
        {150,
         "90g 92. 100r 102. 190b 192. 213g 218. 398r 400g 402. 408g 410r 412. 450b 452. 548g 550. ",
         "90g 101r 102. 173g 180. 190b 192. 398r 400g 402. 408g 410r 412. 450b 452. 548g 550. "},
        {200, "90g 92. 100r 102. 190b 192. 318g 324. 354b 452. 548g 550. ",
         "90g 92. 100r 102. 190b 194? 197b 198? 199b 201. 318g 325. 398r 400g 402. 408g 410r 412. "
         "441b 446? 447b 449? 450b 452. 548g 550. "},
        {289, "90g 92. 100r 102. 190b 192. 398r 400g 402. 408g 410r 412. 450b 452. 468g 550. ",
         "90g 92. 100r 102. 190b 192. 398r 400g 402. 408g 410r 412. 450b 452. 539g 541? 542g 543? "
         "548g 550. "},
        {300, "", ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(line(row.across), vertical() ? row.vertical : row.horizontal);
    min.Visible = false;
    overlay->takeDirty();
    overlay->markControl(min);
    EXPECT_TRUE(overlay->takeDirty());
    for (const char* stroke : {"113r 117", " 383r 387"})
        EXPECT_NE(line(110).find(stroke), std::string::npos) << "crossed out, being hidden";
    const auto shows = [&](const char* piece) { return line(130).find(piece) < 999; };
    overlay->clearP();
    press();
    EXPECT_TRUE(shows("400g"));
    drag(20);
    EXPECT_TRUE(shows("420g") && !shows("400g")) << "it follows a drag";
    overlay->clearP();
    release();
    EXPECT_TRUE(shows("420g"));
}

TEST_P(DebugCanvas, ShowsTheBoxesAreaThroughTheMask) {
    openWithOverlay();
    const auto opacity = [&](int x, int y) { return pixel(overlay->paint(), x, y) >> 24; };
    overlay->paint();  // of a new size, so the drawing is cleared
    splitter.setMinLimit(90);
    splitter.setMaxLimitOffset(50);
    EXPECT_EQ(opacity(2, 2), 0U);
    for (const int line : {400, splitter.MaxLimit - 50})
        EXPECT_EQ(opacity(line, 270), 255U - 0x44) << line;
    EXPECT_EQ(vertical() ? opacity(90, 101) : opacity(91, 100), 255U - 0x22) << "a label";
    overlay->Width = 700;
    overlay->paint();
    EXPECT_EQ(opacity(400, 270), 0U) << "a new size has cleared it";
    splitter.setDebug(true);
    EXPECT_EQ(opacity(400, 270), 255U - 0x44);
    splitter.setDebug(false);
    EXPECT_EQ(opacity(400, 270), 0U);
}

}  // namespace
}  // namespace bracken::test
