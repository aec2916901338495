#include "framework/controls/plain_controls.h"
#include "framework/exception.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

constexpr uint32_t green = 0xff009600;
constexpr uint32_t blue = 0xff000096;
constexpr uint32_t red = 0xffc80000;

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
};
INSTANTIATE_TEST_SUITE_P(Both, DebugCanvas, testing::Bool(), orientationName);

TEST_P(DebugCanvas, MarksSplitterZonesAndControls) {
    auto& min = add<GroupBox>("min", 100, 300);
    auto& max = add<GroupBox>("max", 410, 140);
    open();
    auto& canvas = addCanvas();
    EXPECT_FALSE(canvas.TakesMouse);
    EXPECT_TRUE(canvas.LockLeft && canvas.LockTop && canvas.LockRight && canvas.LockBottom);
    EXPECT_EQ(canvas.Width, stage.Width);
    splitter.setDebug(true);
    splitter.behave();
    struct Case {
        const char* name;
        int along, across;
        uint32_t color;
    };
    // At 110 to 130 across there is no label and no diagonal of the range.
    const Case cases[] = {
        {"the splitter's frame, two pixels thick", 401, 130, green},
        {"its other side", 409, 130, green},
        {"the range from MinLimit", 90, 130, green},
        {"to MaxLimit", 549, 130, green},
        {"the zone at MinLimit", 90 + splitter.MinLimitOffset, 130, blue},
        {"the zone at MaxLimit", 550 - splitter.MaxLimitOffset, 130, blue},
        {"a control", 101, 130, red},
        {"the range on top of a control", at(max) + extent(max) - 2, 100, green},
    };
    for (const Case& c : cases) EXPECT_EQ(pixel(canvas, c.along, c.across), c.color) << c.name;
    EXPECT_NE(pixel(canvas, 402, 130), green);
    canvas.takeDirty();
    min.Visible = false;
    canvas.markControl(min);
    EXPECT_TRUE(canvas.takeDirty());
    EXPECT_EQ(pixel(canvas, 100 + extent(min) / 2, 200), red) << "crossed out, as it is hidden";
    press();
    drag(20);
    EXPECT_EQ(pixel(canvas, 421, 130), green) << "it follows a drag";
    EXPECT_NE(pixel(canvas, 401, 130), green);
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

TEST_P(DebugCanvas, ShowsEachChangeOfTheSplitter) {
    auto& pane = add<GroupBox>("pane", 300, 100);
    auto& canvas = addCanvas();
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"setMaxLimit", [&] { splitter.setMaxLimit(500); }},
        {"setMinLimit", [&] { splitter.setMinLimit(20); }},
        {"setMaxLimitOffset", [&] { splitter.setMaxLimitOffset(5); }},
        {"setMinLimitOffset", [&] { splitter.setMinLimitOffset(5); }},
        {"setMaxLimitOffset of a control", [&] { splitter.setMaxLimitOffset(&pane); }},
        {"setMinLimitOffset of a control", [&] { splitter.setMinLimitOffset(&pane); }},
        {"setMaxAttachedControl", [&] { splitter.setMaxAttachedControl(&pane, false); }},
        {"setMinAttachedControl", [&] { splitter.setMinAttachedControl(&pane, false); }},
        {"setPosition", [&] { splitter.setPosition(400); }},
        {"setProportion", [&] { splitter.setProportion(0.5); }},
        {"press", [&] { press(); }},
        {"release", [&] { release(); }},
        {"behave", [&] { splitter.behave(); }},
    };
    splitter.setDebug(true);
    for (const auto& [name, change] : changes) {
        canvas.clearP();
        canvas.takeDirty();
        change();
        EXPECT_TRUE(canvas.takeDirty()) << name;
        EXPECT_EQ(pixel(canvas, at(splitter) + 5, 299), green) << name;
    }
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
