#include "framework/controls/buttons.h"
#include "framework/controls/plain_controls.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

// The splitter at 400, 10 thick, free to move between 0 and 600.
class Adjust : public SplitterTest {
  protected:
    void SetUp() override { open(); }
    RectControl& attach(int position, int extentAlong) {
        splitter.unAttachAllControls();
        place(splitter, 400);
        auto& control = add<PushButton>("control", position, extentAlong);
        splitter.attach(&control);
        setLimits(0, 0, 600, 0);
        return control;
    }
    void setRole(RectControl& control, bool move, bool resize, bool center) {
        splitter.setAttachedControlShouldMove(&control, move);
        splitter.setAttachedControlShouldResize(&control, resize);
        splitter.setAttachedControlShouldCenter(&control, center);
    }
};
INSTANTIATE_TEST_SUITE_P(Both, Adjust, testing::Bool(), orientationName);

TEST_P(Adjust, AppliesAMoveByTheControlsFlags) {
    struct Case {
        bool isBefore, move, resize, center;
        int distance, minSize, position, extent;
        bool shown;
    };
    // A centred control stands in the middle of 0 to the splitter, or from there to 600.
    const Case cases[] = {
        {1, 0, 1, 0, -80, 20, 300, 20, true},  {1, 0, 1, 0, -81, 20, 300, 19, false},
        {1, 0, 1, 0, -99, 0, 300, 1, true},    {1, 0, 1, 0, -100, 0, 300, 0, false},
        {1, 0, 1, 0, 50, 2, 300, 150, true},   {1, 0, 1, 0, -120, 2, 300, -20, false},
        {1, 1, 0, 0, 50, 2, 350, 100, true},   {1, 1, 1, 0, 50, 2, 350, 150, true},
        {1, 0, 0, 0, -50, 2, 300, 100, false}, {1, 1, 0, 1, 50, 2, 180, 100, true},
        {1, 0, 0, 1, -51, 2, 129, 100, true},  {0, 1, 1, 0, 50, 2, 460, 50, true},
        {0, 1, 1, 0, 99, 2, 509, 1, false},    {0, 1, 0, 0, 50, 2, 460, 100, true},
        {0, 0, 1, 0, -50, 2, 410, 150, true},  {0, 0, 0, 0, 50, 2, 410, 100, false},
        {0, 0, 0, 1, -51, 2, 429, 100, true},
    };
    for (const Case& c : cases) {
        RectControl& control = attach(c.isBefore ? 300 : 410, 100);
        setRole(control, c.move, c.resize, c.center);
        splitter.setAttachedControlMinSizeVisible(&control, c.minSize);
        splitter.moveDistance(c.distance, false);
        SCOPED_TRACE(Probe::role(splitter, control) + " by " + std::to_string(c.distance));
        EXPECT_EQ(at(control), c.position);
        EXPECT_EQ(extent(control), c.extent);
        EXPECT_EQ(control.Visible, c.shown);
    }
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
        RectControl& control = attach(c.position, c.extent);
        setRole(control, false, false, false);
        splitter.behave();
        EXPECT_EQ(control.Visible, c.shown) << c.position << " " << c.extent;
        setRole(control, false, false, true);
        setLimits(380, 0, 430, 0);
        splitter.behave();
        EXPECT_FALSE(control.Visible) << "also if it is centred";
    }
}

TEST_P(Adjust, HidesWhatSticksOutOfItsContainerAndShowsIt) {
    auto& box = add<GroupBox>("box", 0, 0);
    box.place(420, 420, 80, 80);
    for (int side = 0; side < 5; ++side) {
        for (bool isSplitter : {false, true}) {
            RectControl& inner =
                isSplitter ? add<SmartSplitter>("inner", 0, 0) : add("inner", 0, 0);
            inner.place(420 - (side == 1), 420 - (side == 2), 80 + (side == 3), 80 + (side == 4));
            inner.Parent = &box;
            splitter.unAttachAllControls();
            splitter.attach(&inner);
            splitter.setMaxLimit(400);
            splitter.behave();
            EXPECT_EQ(inner.Visible, side == 0 || isSplitter) << "side " << side;
        }
    }
    RectControl& control = attach(300, 100);
    control.Visible = false;
    splitter.behave();
    EXPECT_TRUE(control.Visible) << "as the program hid it after it was attached";
    splitter.setAttachedControlNormallyVisible(&control, false);
    control.Visible = false;
    splitter.behave();
    EXPECT_FALSE(control.Visible);
}

TEST_P(Adjust, CentringTakesEffectAtOnceBetweenTheLimitsOfNow) {
    RectControl& control = attach(300, 100);
    auto& bound = add("bound", 200, 50);
    splitter.setMinAttachedControl(&bound, false);
    splitter.setAttachedControlShouldCenter(&control, true);
    EXPECT_EQ(at(control), 250);  // 190 + 5 + 210/2 - 50
    splitter.setAttachedControlShouldCenter(&control, false);
    EXPECT_EQ(at(control), 250);
}

TEST_P(Adjust, AControlIsHiddenBeforeItsExtentDropsBelowOneAndSetOnlyIfItDiffers) {
    class ObservingPlatform : public FakePlatform {
      public:
        void modelChanged() override {
            if (observe) observe();
        }
        std::function<void()> observe;
    } observing;
    Stage& other = Windows::get().instance<Stage>();
    auto& mover = other.add<SmartSplitter>("splitter", vertical(), 400, 10);
    auto& control = other.add<Canvas>("control", vertical(), 300, 100);
    auto& still = other.add<PushButton>("still", vertical(), 300, 50);
    mover.Event_Open();
    mover.attach(&still);
    mover.setMinLimit(0);
    std::vector<std::pair<bool, int>> states;
    const auto next = [&] {
        control.takeDirty();
        mover.takeDirty();
        beginFrame();
    };
    observing.observe = [&] {
        std::pair<bool, int> state(control.Visible, extent(control));
        if (states.empty() || states.back() != state) states.push_back(state);
        next();
    };
    still.takeDirty();
    next();
    mover.moveDistance(-30, false);
    EXPECT_FALSE(still.takeDirty());
    mover.moveDistance(-100, false);
    EXPECT_EQ(states, (std::vector<std::pair<bool, int>>{
                          {true, 100}, {true, 70}, {false, 70}, {false, -30}}));
}

// One beside the other, the second attached to the first; a third that crosses them.
TEST_P(Adjust, SplittersInThePanesBehaveAfterAMoveButPassNothingOn) {
    auto& other = add<SmartSplitter>("other", 500, 10);
    auto& crossing = stage.add<SmartSplitter>("crossing", !vertical(), 150, 10);
    int behaved = 0;
    other.Moved = crossing.Moved = [&](int /*distance*/) { ++behaved; };
    other.attach(&add("pane", 410, 90));
    for (SmartSplitter* attached : {&other, &crossing}) {
        attached->setMinLimit(0);
        attached->setMaxLimit(2000);
        splitter.attach(attached);
    }
    other.attach(&splitter);
    setLimits(0, 0, 2000, 0);
    int back = 0;
    splitter.Moved = [&](int /*distance*/) { ++back; };
    splitter.moveDistance(20, false);
    EXPECT_EQ(at(other), 520) << "it moves as attached controls do";
    EXPECT_EQ(behaved * 10 + back, 11);
    splitter.behave();
    EXPECT_EQ(behaved * 10 + back, 12) << "behaving passes nothing on";
    splitter.DisableLiveDrag = true;
    splitter.setPosition(430);
    EXPECT_EQ(at(other), 530) << "the controls follow all the same";
    EXPECT_EQ(behaved * 10 + back, 12);
    press();
    drag(20);
    EXPECT_EQ(at(other), 530);
    release();
    EXPECT_EQ(at(other), 550);
    EXPECT_EQ(behaved * 10 + back, 23) << "the end of a drag is a move";
}

}  // namespace
}  // namespace bracken::test
