#include "framework/controls/buttons.h"
#include "framework/controls/plain_controls.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

using Probe = SmartSplitterProbe;

// The splitter at 400, 10 thick, free to move between 0 and 600.
class Adjust : public SplitterTest {
  protected:
    RectControl& attach(int position, int extentAlong) {
        auto& control = add<PushButton>("control", position, extentAlong);
        splitter.attach(&control);
        splitter.setMinLimit(0);
        splitter.setMaxLimit(600);
        splitter.setMinLimitOffset(0);
        splitter.setMaxLimitOffset(0);
        return control;
    }
    void setRole(RectControl& control, bool move, bool resize, bool center) {
        splitter.setAttachedControlShouldMove(&control, move);
        splitter.setAttachedControlShouldResize(&control, resize);
        splitter.setAttachedControlShouldCenter(&control, center);
    }
    void SetUp() override { open(); }
};
INSTANTIATE_TEST_SUITE_P(Both, Adjust, testing::Bool(), orientationName);

TEST_P(Adjust, AppliesAMoveByTheControlsFlags) {
    struct Case {
        bool behind, move, resize, center;
        int distance, position, extent;
        bool shown;
        int minSize = 2;
    };
    const Case cases[] = {
        {true, false, true, false, -80, 300, 20, true, 20},
        {true, false, true, false, -81, 300, 19, false, 20},
        {true, false, true, false, -99, 300, 1, true, 0},
        {true, false, true, false, -100, 300, 0, false, 0},
        {true, false, true, false, 50, 300, 150, true},
        {true, false, true, false, -98, 300, 2, true},
        {true, false, true, false, -99, 300, 1, false},
        {true, false, true, false, -120, 300, -20, false},
        {true, true, false, false, 50, 350, 100, true},
        {true, true, true, false, 50, 350, 150, true},
        {true, false, false, false, 50, 300, 100, true},
        {true, false, false, false, -50, 300, 100, false},
        {true, true, false, true, 50, 180, 100, true},    // 0 + 5 + 450/2 - 50, room 0 to 450
        {true, false, false, true, -51, 129, 100, true},  // 5 + 349/2 - 50 = 129.5
        {false, true, true, false, 50, 460, 50, true},
        {false, true, true, false, 98, 508, 2, true},
        {false, true, true, false, 99, 509, 1, false},
        {false, true, false, false, 50, 460, 100, true},
        {false, false, true, false, -50, 410, 150, true},
        {false, false, false, false, -50, 410, 100, true},
        {false, false, false, false, 50, 410, 100, false},
        {false, false, false, true, -51, 429, 100, true},  // 359 + 241/2 - 50 = 429.5
    };
    for (const Case& c : cases) {
        splitter.unAttachAllControls();
        axis().setPosition(splitter, 400);
        RectControl& control = attach(c.behind ? 300 : 410, 100);
        setRole(control, c.move, c.resize, c.center);
        splitter.setAttachedControlMinSizeVisible(&control, c.minSize);
        splitter.moveDistance(c.distance, false);
        SCOPED_TRACE(testing::Message() << (c.behind ? "min" : "max") << c.move << c.resize
                                        << c.center << " by " << c.distance);
        EXPECT_EQ(at(control), c.position);
        EXPECT_EQ(extent(control), c.extent);
        EXPECT_EQ(control.Visible, c.shown);
    }
}

TEST_P(Adjust, ShowsWhatTheProgramHidUnlessToldOtherwise) {
    RectControl& control = attach(300, 100);
    control.Visible = false;
    splitter.behave();
    EXPECT_TRUE(control.Visible);
    splitter.setAttachedControlNormallyVisible(&control, false);
    control.Visible = false;
    splitter.behave();
    EXPECT_FALSE(control.Visible);
}

TEST_P(Adjust, AFixedControlMayBeOverlappedByAMargin) {
    // One pixel for a vertical splitter, two for a horizontal one.
    int margin = vertical() ? 1 : 2;
    struct Case {
        int position, extent;
        bool shown;
    };
    const Case cases[] = {{300, 100 + margin, true},
                          {300, 101 + margin, false},
                          {410 - margin, 100, true},
                          {409 - margin, 100, false}};
    for (const Case& c : cases) {
        splitter.unAttachAllControls();
        RectControl& control = attach(c.position, c.extent);
        setRole(control, false, false, false);
        splitter.behave();
        EXPECT_EQ(control.Visible, c.shown) << c.position << " " << c.extent;
        setRole(control, false, false, true);
        splitter.setMinLimit(380);
        splitter.setMaxLimit(430);
        splitter.behave();
        EXPECT_FALSE(control.Visible) << "also if it is centred";
    }
}

TEST_P(Adjust, HidesWhatSticksOutOfItsContainer) {
    struct Case {
        int left, top, width, height;
        bool shown;
    };
    const Case cases[] = {{420, 420, 80, 80, true},  {419, 420, 80, 80, false},
                          {420, 419, 80, 80, false}, {420, 420, 81, 80, false},
                          {420, 420, 80, 81, false}, {421, 421, 79, 79, true}};
    auto& box = stage.add<GroupBox>("box", true, {0, 0});
    box.place(420, 420, 80, 80);
    for (const Case& c : cases) {
        for (bool isSplitter : {false, true}) {
            RectControl& control = isSplitter ? stage.add<SmartSplitter>("inner", true, {0, 0})
                                              : stage.add<RectControl>("inner", true, {0, 0});
            control.place(c.left, c.top, c.width, c.height);
            control.Parent = &box;
            splitter.unAttachAllControls();
            splitter.attach(&control);
            splitter.setMaxLimit(400);
            splitter.behave();
            EXPECT_EQ(control.Visible, c.shown || isSplitter)
                << c.left << " " << c.top << " " << c.width << " " << c.height;
        }
    }
}

TEST_P(Adjust, SkipsAnEmptyEntry) {
    RectControl& control = attach(300, 100);
    Probe::attached(splitter).insert(Probe::attached(splitter).begin(), Probe::Entry());
    splitter.moveDistance(-50, false);
    EXPECT_FALSE(control.Visible) << "the one after it is adjusted";
}

TEST_P(Adjust, CentringTakesEffectAtOnce) {
    RectControl& control = attach(300, 100);
    splitter.setAttachedControlShouldCenter(&control, true);
    EXPECT_EQ(at(control), 155);  // 0 + 5 + 400/2 - 50
    splitter.setAttachedControlShouldCenter(&control, false);
    EXPECT_EQ(at(control), 155);
}

// Observes each change of the model as it is made.
class ObservingPlatform : public FakePlatform {
  public:
    void modelChanged() override {
        if (observe) observe();
    }
    std::function<void()> observe;
};

TEST(AdjustOrder, AControlIsHiddenBeforeItsExtentDropsBelowOne) {
    ObservingPlatform platform;
    Stage& stage = Stage::make();
    auto& splitter = stage.add<SmartSplitter>("splitter", true, {400, 10});
    auto& control = stage.add<Canvas>("control", true, {300, 100});
    splitter.Event_Open();
    splitter.setMinLimit(0);
    std::vector<std::pair<bool, int>> states;
    platform.observe = [&] {
        std::pair<bool, int> state(control.Visible, control.Width);
        if (states.empty() || states.back() != state) states.push_back(state);
        control.takeDirty();
        splitter.takeDirty();
        beginFrame();
    };
    control.takeDirty();
    splitter.takeDirty();
    beginFrame();
    splitter.moveDistance(-130, false);
    EXPECT_EQ(states, (std::vector<std::pair<bool, int>>{{true, 100}, {false, 100}, {false, -30}}));
}

// One beside the other, the second attached to the first.
class NestedSplitters : public SplitterTest {
  protected:
    void SetUp() override {
        open();
        other.attach(&pane);
        other.setMinLimit(0);
        other.setMaxLimit(2000);
        other.setMinLimitOffset(0);
        splitter.attach(&other);
        splitter.setMinLimit(0);
        splitter.setMaxLimit(2000);
        splitter.setMaxLimitOffset(0);
        other.Moved = [this](int /*distance*/) { ++behaved; };
    }

    SmartSplitter& other = add<SmartSplitter>("other", 500, 10);
    RectControl& pane = add<RectControl>("pane", 410, 90);
    int behaved = 0;
};
INSTANTIATE_TEST_SUITE_P(Both, NestedSplitters, testing::Bool(), orientationName);

TEST_P(NestedSplitters, BehaveAfterAMoveButPassNothingOn) {
    other.attach(&splitter);
    int back = 0;
    splitter.Moved = [&](int /*distance*/) { ++back; };
    splitter.moveDistance(20, false);
    EXPECT_EQ(at(other), 520) << "it moves as attached controls do";
    EXPECT_EQ(behaved, 1);
    EXPECT_EQ(back, 1);
    splitter.behave();
    EXPECT_EQ(behaved, 1) << "behaving passes nothing on";
    EXPECT_EQ(back, 2);
}

TEST_P(NestedSplitters, OfTheOtherOrientationDoNotBehave) {
    int crossing = 0;
    auto& crossed = stage.add<SmartSplitter>("crossed", !vertical(), {150, 10});
    crossed.Moved = [&](int /*distance*/) { ++crossing; };
    crossed.Event_Open();
    splitter.attach(&crossed);
    splitter.moveDistance(20, false);
    EXPECT_EQ(behaved, 1);
    EXPECT_EQ(crossing, 0);
}

TEST_P(NestedSplitters, DoNotBehaveIfThePositionIsSetWithoutLiveDrag) {
    splitter.DisableLiveDrag = true;
    int moved = 0;
    splitter.Moved = [&](int /*distance*/) { ++moved; };
    splitter.setPosition(430);
    EXPECT_EQ(at(other), 530) << "the controls follow all the same";
    EXPECT_EQ(behaved, 0);
    EXPECT_EQ(moved, 0);
}

}  // namespace
}  // namespace bracken::test
