#include "framework/controls/plain_controls.h"
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
    // By position along the splitter's axis and across it.
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
    // At 110 to 130 across there is no label and no diagonal of the range.
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
    EXPECT_EQ(pixel(canvas, middle, 200), red) << "crossed out, as it is hidden";
}

TEST_P(DebugCanvas, ShowsTheBoxesAreaThroughTheMask) {
    add<GroupBox>("min", 100, 300);
    open();
    auto& canvas = addCanvas();
    auto opacity = [&](int along, int across) {
        return canvas.paint().at(vertical() ? along : across, vertical() ? across : along) >> 24;
    };
    splitter.setDebug(true);
    canvas.paint();  // of a new size, so the drawing is cleared
    splitter.setDebug(true);
    EXPECT_EQ(opacity(2, 2), 0U);
    EXPECT_EQ(opacity(400, 290), 255U - 0x44) << "lines";
    EXPECT_EQ(vertical() ? opacity(90, 101) : opacity(91, 100), 255U - 0x22)
        << "the label of MinLimit, which begins at the range's corner";
    canvas.Width = canvas.Width - 1;
    EXPECT_NE(opacity(400, 290), 0U) << "a new size shows the old drawing once more";
    EXPECT_EQ(opacity(400, 290), 0U);
    splitter.setDebug(true);
    EXPECT_NE(opacity(400, 290), 0U);
    splitter.setDebug(false);
    EXPECT_EQ(opacity(400, 290), 0U);
}

TEST_P(DebugCanvas, TheFirstCanvasOfTheWindowIsUsed) {
    open();
    auto& first = addCanvas();
    auto& second = addCanvas();
    splitter.setDebug(true);
    EXPECT_TRUE(first.debug);
    EXPECT_FALSE(second.debug);
    Ref<Picture> picture = Probe::picture(first);
    splitter.setDebug(false);
    EXPECT_FALSE(first.debug);
    EXPECT_TRUE(Probe::picture(first) == picture) << "the picture stays";
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
    EXPECT_THROW(drag(-20), NilObjectException) << "no canvas left to clear";
}

TEST_P(DebugCanvas, BeforeOpeningItShowsTheLimitsNotDerivedYet) {
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

// A screen larger than the memory.
class WideScreen : public FakePlatform {
  public:
    ScreenRect screen() override { return {0, 0, 2000000000, 2000000000}; }
};

TEST(DebugCanvasMemory, RunningOutIsReportedOnce) {
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
