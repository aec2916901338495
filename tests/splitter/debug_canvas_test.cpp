#include "framework/controls/group_box.h"
#include "framework/exception.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

using Probe = SmartSplitterProbe;

constexpr uint32_t green = 0xff009600;
constexpr uint32_t blue = 0xff000096;
constexpr uint32_t red = 0xffc80000;

class DebugCanvas : public SplitterTest {
  protected:
    CanvasSmartSplitterDebugger& addCanvas() {
        auto& canvas = stage.add<CanvasSmartSplitterDebugger>("overlay", true, {0, 1});
        canvas.Event_Open();
        return canvas;
    }
    // By place along the splitter's axis and across it.
    uint32_t pixel(CanvasSmartSplitterDebugger& canvas, int along, int across) {
        return Probe::picture(canvas)->pixels().at(vertical() ? along : across,
                                                   vertical() ? across : along);
    }
};
INSTANTIATE_TEST_SUITE_P(Both, DebugCanvas, testing::Bool(), orientationName);

TEST_P(DebugCanvas, MarksSplitterZonesAndControls) {
    auto& min = add<GroupBox>("min", 100, 300);
    auto& max = add<GroupBox>("max", 410, 140);
    open();
    auto& canvas = addCanvas();
    EXPECT_FALSE(canvas.TakesMouse);
    EXPECT_EQ(canvas.Width, stage.Width);
    splitter.setDebug(true);
    splitter.behave();
    // Seen at 110 to 130 across, where no label and no slope of the range lies.
    EXPECT_EQ(pixel(canvas, 400, 130), green) << "the splitter's frame, two pixels thick";
    EXPECT_EQ(pixel(canvas, 401, 130), green);
    EXPECT_NE(pixel(canvas, 402, 130), green);
    EXPECT_EQ(pixel(canvas, 90, 130), green) << "the range from MinLimit";
    EXPECT_EQ(pixel(canvas, 549, 130), green) << "to MaxLimit";
    EXPECT_EQ(pixel(canvas, 90 + splitter.MinLimitOffset, 130), blue);
    EXPECT_EQ(pixel(canvas, 550 - splitter.MaxLimitOffset, 130), blue);
    EXPECT_EQ(pixel(canvas, 101, 130), red);
    EXPECT_EQ(pixel(canvas, at(max) + 1 + extent(max) - 3, 100), green) << "the range on top";
    min.Visible = false;
    canvas.markControl(min);
    int middle = 100 + extent(min) / 2;
    EXPECT_EQ(pixel(canvas, middle, 200), red) << "crossed, as it is hidden";
}

TEST_P(DebugCanvas, ShowsTheBoxesAreaThroughTheMask) {
    add<GroupBox>("min", 100, 300);
    open();
    auto& canvas = addCanvas();
    splitter.setDebug(true);
    canvas.paint();  // of a new size, so the drawing is wiped
    splitter.setDebug(true);
    const Pixels& shown = canvas.paint();
    EXPECT_EQ(shown.at(2, 2), clearPixel);
    int edge = vertical() ? shown.at(400, 290) >> 24 : shown.at(290, 400) >> 24;
    EXPECT_EQ(edge, 255 - 0x44) << "lines";
    // The label of MinLimit begins at the range's corner.
    int label = vertical() ? shown.at(90, 101) >> 24 : shown.at(100, 91) >> 24;
    EXPECT_EQ(label, 255 - 0x22);
    EXPECT_NE(canvas.paint().at(vertical() ? 400 : 290, vertical() ? 290 : 400), clearPixel);
    splitter.setDebug(false);
    EXPECT_EQ(canvas.paint().at(vertical() ? 400 : 290, vertical() ? 290 : 400), clearPixel);
}

TEST_P(DebugCanvas, ANewSizeWipesTheDrawingAfterThatPaint) {
    open();
    auto& canvas = addCanvas();
    splitter.setDebug(true);
    canvas.paint();
    splitter.setDebug(true);
    canvas.Width = canvas.Width - 1;
    auto seen = [&] { return canvas.paint().at(vertical() ? 400 : 290, vertical() ? 290 : 400); };
    EXPECT_NE(seen(), clearPixel) << "the old drawing once more";
    EXPECT_EQ(seen(), clearPixel);
}

TEST_P(DebugCanvas, TheFirstCanvasOfTheWindowIsTaken) {
    open();
    auto& first = addCanvas();
    auto& second = addCanvas();
    splitter.setDebug(true);
    EXPECT_TRUE(first.debug);
    EXPECT_FALSE(second.debug);
    Ref<Picture> kept = Probe::picture(first);
    splitter.setDebug(false);
    EXPECT_FALSE(first.debug);
    EXPECT_TRUE(Probe::picture(first) == kept) << "the picture stays";
}

TEST_P(DebugCanvas, WithoutOneDebuggingStaysOff) {
    const std::string text =
        "SmartSplitter 'splitter' needs a CanvasSmartSplitterDebugger to be present in the window "
        "for debug mode to work.";
    platform.expectBox(text);
    Probe::debug(splitter) = true;
    open();
    EXPECT_FALSE(Probe::debug(splitter));
    addCanvas();
    splitter.setDebug(true);
    EXPECT_TRUE(Probe::debug(splitter));
    splitter.Event_Close();
    press(5);
    EXPECT_THROW(drag(-20), NilObjectException) << "no canvas left to wipe";
}

TEST_P(DebugCanvas, BeforeOpeningItShowsTheLimitsNotFoundYet) {
    auto& canvas = addCanvas();
    Probe::debug(splitter) = true;
    int minLimit = 0;
    splitter.Open = [&] { minLimit = splitter.MinLimit; };
    open();
    EXPECT_EQ(minLimit, 9999);
    EXPECT_TRUE(canvas.debug);
    splitter.setMinLimit(50);
    EXPECT_EQ(pixel(canvas, 50, 290), green);
}

// A desktop with more screen than there is memory.
class WideScreen : public FakePlatform {
  public:
    ScreenRect screen() override { return {0, 0, 2000000000, 2000000000}; }
};

TEST(DebugCanvasMemory, RunningOutIsToldOnce) {
    WideScreen platform;
    Stage& stage = Stage::make();
    auto& splitter = stage.add<SmartSplitter>("splitter", true, {400, 10});
    auto& canvas = stage.add<CanvasSmartSplitterDebugger>("overlay", true, {0, 1});
    platform.expectBox(
        "CanvasSmartSplitterDebugger can not be initialized.   Not enough available memory.");
    splitter.setDebug(true);
    splitter.behave();
    splitter.setMinLimit(3);
    EXPECT_EQ(Probe::picture(canvas), nullptr);
}

}  // namespace
}  // namespace bracken::test
