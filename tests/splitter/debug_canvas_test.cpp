#include <array>
#include <map>

#include "framework/controls/plain_controls.h"
#include "framework/exception.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

constexpr uint32_t green = 0xff009600;
// The letter of each colour; a letter of text has others.
const std::map<uint32_t, char> letters = {
    {green, 'g'}, {0xff000096, 'b'}, {0xffc80000, 'r'}, {0xffffffff, '.'}};

class DebugCanvas : public SplitterTest {
  protected:
    CanvasSmartSplitterDebugger& addCanvas() {
        auto& canvas = stage.add<CanvasSmartSplitterDebugger>("overlay", true, 0, 1);
        canvas.Event_Open();
        return canvas;
    }
    // By position along the splitter's axis and across it.
    uint32_t pixel(CanvasSmartSplitterDebugger& canvas, int along, int across) {
        return Probe::picture(canvas)->pixels().at(vertical() ? along : across,
                                                   vertical() ? across : along);
    }
    // Where along the axis the drawing changes its colour.
    std::string line(CanvasSmartSplitterDebugger& canvas, int across) {
        std::string changes;
        char last = '.';
        for (int along = 0; along < 600; ++along) {
            const auto known = letters.find(pixel(canvas, along, across));
            const char letter = known == letters.end() ? '?' : known->second;
            if (letter != last) changes += std::to_string(along) + (last = letter) + " ";
        }
        return changes;
    }
};
INSTANTIATE_TEST_SUITE_P(Both, DebugCanvas, testing::Bool(), orientationName);

TEST_P(DebugCanvas, MarksSplitterZonesAndControls) {
    auto& min = add<GroupBox>("min", 100, 300);
    add<GroupBox>("max", 410, 140);
    open();
    auto& canvas = addCanvas();
    EXPECT_FALSE(canvas.TakesMouse);
    EXPECT_TRUE(canvas.LockLeft && canvas.LockTop && canvas.LockRight && canvas.LockBottom);
    EXPECT_EQ(
        (std::array{canvas.Left.get(), canvas.Top.get(), canvas.Width.get(), canvas.Height.get()}),
        (std::array{0, 0, 800, 600}));
    splitter.setDebug(true);
    splitter.behave();
    struct Row {
        int across;
        const char *vertical, *horizontal;
    };
    // Frames are two pixels thick. The splitter lies at 400 to 410, its range from 90 to 550, the
    // zones end at 190 and 450, the labels and the range's diagonal cross some rows.
    const Row rows[] = {
        {99, "", ""},
        {100, "90g 550. ", "90g 550. "},
        {150,
         "90g 92. 100r 102. 190b 192. 213g 218. 398r 400g 402. 408g 410r 412. 450b 452. 548g 550. ",
         "90g 101r 102. 173g 180. 190b 192. 398r 400g 402. 408g 410r 412. 450b 452. 548g 550. "},
        {189,
         "90g 92. 100r 102. 190b 284. 295g 300. 398r 400g 402. 408g 410r 412. 450b 452. 548g 550. ",
         "90g 92. 100r 102. 190b 192? 199b 201. 286g 293. 398r 400g 402. 408g 410r 412. 441b 444? "
         "450b 452. 548g 550. "},
        {200, "90g 92. 100r 102. 190b 192. 318g 324. 354b 452. 548g 550. ",
         "90g 92. 100r 102. 190b 194? 197b 198? 199b 201. 318g 325. 398r 400g 402. 408g 410r 412. "
         "441b 446? 447b 449? 450b 452. 548g 550. "},
        {289, "90g 92. 100r 102. 190b 192. 398r 400g 402. 408g 410r 412. 450b 452. 468g 550. ",
         "90g 92. 100r 102. 190b 192. 398r 400g 402. 408g 410r 412. 450b 452. 539g 541? 542g 543? "
         "548g 550. "},
        {300, "", ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(line(canvas, row.across), vertical() ? row.vertical : row.horizontal)
            << row.across;
    canvas.takeDirty();
    min.Visible = false;
    canvas.markControl(min);
    EXPECT_TRUE(canvas.takeDirty());
    EXPECT_TRUE(line(canvas, 110).find("102. 113r 117") != std::string::npos ||
                line(canvas, 110).find("102g 113r 117g") != std::string::npos)
        << "crossed out, as it is hidden";
    EXPECT_NE(line(canvas, 110).find(" 383r 387. 398r"), std::string::npos) << "both ways";
    for (bool down : {true, false}) {
        canvas.clearP();
        down ? press() : release();
        EXPECT_EQ(pixel(canvas, 401, 130), green) << down;
    }
    press();
    drag(20);
    EXPECT_EQ(pixel(canvas, 421, 130), green) << "it follows a drag";
    EXPECT_NE(pixel(canvas, 401, 130), green);
}

TEST_P(DebugCanvas, ShowsTheBoxesAreaThroughTheMask) {
    add<GroupBox>("min", 100, 300);
    open();
    splitter.setMaxLimitOffset(50);
    auto& canvas = addCanvas();
    auto opacity = [&](int along, int across) {
        return canvas.paint().at(vertical() ? along : across, vertical() ? across : along) >> 24;
    };
    splitter.setDebug(true);
    canvas.paint();  // of a new size, so the drawing is cleared
    splitter.setDebug(true);
    EXPECT_EQ(opacity(2, 2), 0U);
    for (int along :
         {400, 90 + splitter.MinLimitOffset, splitter.MaxLimit - splitter.MaxLimitOffset})
        EXPECT_EQ(opacity(along, 270), 255U - 0x44) << "a line at " << along;
    EXPECT_EQ(vertical() ? opacity(90, 101) : opacity(91, 100), 255U - 0x22)
        << "the label of MinLimit, which begins at the range's corner";
    for (auto* size : {&canvas.Width, &canvas.Height}) {
        *size = *size - 1;
        EXPECT_NE(opacity(400, 290), 0U) << "a new size shows the old drawing once more";
        EXPECT_EQ(opacity(400, 290), 0U);
        splitter.setDebug(true);
    }
    EXPECT_NE(opacity(400, 290), 0U);
    splitter.setDebug(false);
    EXPECT_EQ(opacity(400, 290), 0U);
}

TEST_P(DebugCanvas, TheFirstCanvasOfTheWindowIsUsed) {
    const std::string text =
        "SmartSplitter 'splitter' needs a CanvasSmartSplitterDebugger to be present in the window "
        "for debug mode to work.";
    platform.expectBox(text);
    Probe::debug(splitter) = true;
    open();
    EXPECT_FALSE(Probe::debug(splitter)) << "there is none";
    auto& first = addCanvas();
    auto& second = addCanvas();
    splitter.setDebug(true);
    EXPECT_TRUE(first.debug && !second.debug);
    Ref<Picture> picture = Probe::picture(first);
    splitter.setDebug(false);
    EXPECT_FALSE(first.debug);
    EXPECT_TRUE(Probe::picture(first) == picture) << "the picture stays";
    splitter.setDebug(true);
    splitter.Event_Close();
    press();
    EXPECT_THROW(drag(-20), NilObjectException) << "no canvas left to clear";
}

// A screen larger than the memory.
class WideScreen : public FakePlatform {
  public:
    ScreenRect screen() override { return {0, 0, 2000000000, 2000000000}; }
};

TEST(DebugCanvasMemory, RunningOutIsReportedOnce) {
    WideScreen platform;
    Stage& stage = Windows::get().instance<Stage>();
    auto& splitter = stage.add<SmartSplitter>("splitter", true, 400, 10);
    auto& canvas = stage.add<CanvasSmartSplitterDebugger>("overlay", true, 0, 1);
    platform.expectBox(
        "CanvasSmartSplitterDebugger can not be initialized.   Not enough available memory.");
    splitter.setDebug(true);
    splitter.behave();
    splitter.setMinLimit(3);
    EXPECT_EQ(Probe::picture(canvas), nullptr);
}

}  // namespace
}  // namespace bracken::test
