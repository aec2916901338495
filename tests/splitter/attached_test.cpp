#include "tests/splitter/stage.h"

namespace bracken::test {

class Attach : public SplitterTest {};
INSTANTIATE_TEST_SUITE_P(Both, Attach, testing::Bool(), orientationName);

TEST_P(Attach, AttachesWhatTouchesTheSplitter) {
    struct Case {
        int position, extent, crossPosition, crossExtent;
        bool touches;
    };
    // The splitter reaches from 400 to 410 along its axis, from 100 to 300 across it.
    const Case cases[] = {
        {300, 104, 100, 200, true}, {300, 105, 100, 200, false}, {300, 96, 100, 200, true},
        {300, 95, 100, 200, false}, {414, 50, 100, 200, true},   {415, 50, 100, 200, false},
        {406, 50, 100, 200, true},  {405, 50, 100, 200, false},  {300, 100, 304, 50, true},
        {300, 100, 305, 50, false}, {300, 100, 50, 46, true},    {300, 100, 50, 45, false},
        {300, 100, 0, 600, true},
    };
    stage.owned.push_back(std::make_shared<Timer>(stage, "timer"));
    auto& control = add("control", 0, 0);
    for (const Case& c : cases) {
        place(control, c.position);
        axis().setExtent(control, c.extent);
        cross().setPosition(control, c.crossPosition);
        cross().setExtent(control, c.crossExtent);
        splitter.unAttachAllControls();
        splitter.attachNearbyControls();
        EXPECT_EQ(Probe::names(splitter), c.touches ? "control " : "")
            << c.position << " " << c.extent << " " << c.crossPosition << " " << c.crossExtent;
    }
}

TEST_P(Attach, AttachesNeighboursOfTheSameContainerAndPage) {
    RectControl* const tabs = &add<TabPanel>("tabs", 700, 50);
    RectControl* const pages = &add<PagePanel>("pages", 700, 50);
    auto& control = add("control", 410, 50);
    splitter.Parent = tabs;
    splitter.TabPanelIndex = 1;
    for (RectControl* parent : {tabs, pages})
        for (const int page : {1, 2}) {
            control.Parent = parent;
            control.TabPanelIndex = page;
            splitter.unAttachAllControls();
            splitter.attachNearbyControls();
            EXPECT_EQ(Probe::names(splitter), parent == tabs && page == 1 ? "control " : "");
        }
}

TEST_P(Attach, ChoosesTheRoleBySideClassAndContainer) {
    auto& box = add<GroupBox>("box", 200, 200);
    auto& far = add<GroupBox>("far", 410, 200);
    struct Case {
        RectControl& control;
        RectControl* parent;
        const char* role;
    };
    add<Line>("line", 404, 50);
    auto& inside = add<Listbox>("inside", 250, 146);
    auto& button = add<PushButton>("button", 399, 100);
    button.Visible = false;
    const Case cases[] = {
        {box, nullptr, "min resize"},
        {inside, &box, "min resize"},
        {add<Listbox>("inner", 250, 154), &inside, "min"},
        {add<Listbox>("short", 250, 145), &box, "min"},
        {far, nullptr, "max move resize"},
        {add<Listbox>("farInside", 450, 160), &far, "max"},
        {button, nullptr, "min hidden"},
    };
    for (const Case& c : cases) c.control.Parent = c.parent;
    splitter.attach(nullptr);
    splitter.attach(&button);
    splitter.attach(&add<PushButton>("level", 400, 100));
    splitter.attachNearbyControls();
    EXPECT_EQ(Probe::names(splitter), "box inside inner short far farInside button level ");
    for (const Case& c : cases)
        EXPECT_EQ(Probe::role(splitter, c.control), c.role) << c.control.name();
    EXPECT_EQ((std::pair{splitter.MinLimitOffset, splitter.MaxLimitOffset}), (std::pair{100, 100}));
    splitter.unAttach(&box, false);
    splitter.doNotAttachEmbeddedControls = true;
    splitter.attach(&box);
    EXPECT_EQ(Probe::names(splitter), "far farInside button level box ");
}

TEST_P(Attach, FindsTheBoundsByNearEdgeAndFarEdge) {
    open();
    for (auto* control :
         {&add("a", 300, 100), &add("b", 300, 50), &add("x", 420, 100), &add("y", 410, 110)})
        splitter.attach(control);
    EXPECT_EQ(Probe::bounds(splitter), "a x") << "a tie keeps the earlier one";
    splitter.attach(&add("c", 299, 20));
    auto& z = add("z", 400, 121);
    splitter.attach(&z);
    splitter.unAttach(&z, false);
    EXPECT_EQ(Probe::bounds(splitter), "c z") << "detaching keeps them";
    EXPECT_THROW(splitter.setMinAttachedControl(nullptr, true), NilObjectException);
    splitter.setAttachedControlShouldMove(&z, true);
    splitter.showWarningsDialogs = true;
    platform.expectBox(
        "The control 'z' passed to the SmartSplitter 'splitter' method "
        "'setAttachedControlShouldMove' has not been attached.\n\nControl must be attached BEFORE "
        "calling this method.");
    splitter.setAttachedControlShouldMove(&z, true);
}

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
    // A centred control stands in the middle of 0 to the splitter, or from there to 600. One that
    // stays may be overlapped by a margin.
    const int margin = vertical() ? 1 : 2;
    const Case cases[] = {
        {1, 0, 1, 0, -80, 20, 300, 20, true},     {1, 0, 1, 0, -81, 20, 300, 19, false},
        {1, 0, 1, 0, -99, 0, 300, 1, true},       {1, 0, 1, 0, -100, 0, 300, 0, false},
        {1, 0, 1, 0, 50, 2, 300, 150, true},      {1, 0, 1, 0, -120, 2, 300, -20, false},
        {1, 1, 0, 0, 50, 2, 350, 100, true},      {1, 1, 1, 0, 50, 2, 350, 150, true},
        {1, 1, 0, 1, 50, 2, 180, 100, true},      {1, 0, 0, 1, -51, 2, 129, 100, true},
        {0, 1, 1, 0, 50, 2, 460, 50, true},       {0, 1, 1, 0, 99, 2, 509, 1, false},
        {0, 1, 0, 0, 50, 2, 460, 100, true},      {0, 0, 1, 0, -50, 2, 410, 150, true},
        {1, 0, 0, 0, -margin, 2, 300, 100, true}, {1, 0, 0, 0, -margin - 1, 2, 300, 100, false},
        {0, 0, 0, 0, margin, 2, 410, 100, true},  {0, 0, 0, 0, margin + 1, 2, 410, 100, false},
        {0, 0, 0, 1, -51, 2, 429, 100, true},
    };
    for (const Case& c : cases) {
        RectControl& control = attach(c.isBefore ? 300 : 410, 100);
        setRole(control, c.move, c.resize, c.center);
        splitter.setAttachedControlMinSizeVisible(&control, c.minSize);
        splitter.moveDistance(c.distance, false);
        EXPECT_EQ(std::tuple(at(control), extent(control), control.Visible.get()),
                  std::tuple(c.position, c.extent, c.shown))
            << Probe::role(splitter, control) << " by " << c.distance;
    }
}

TEST_P(Adjust, HidesWhatSticksOutOfItsContainerAndShowsItAgain) {
    auto& box = add<GroupBox>("box", 0, 0);
    box.place(420, 420, 80, 80);
    for (int side = 0; side < 5; ++side)
        for (const bool isSplitter : {false, true}) {
            auto& inner = isSplitter ? add<SmartSplitter>("inner", 0, 0) : add("inner", 0, 0);
            inner.place(420 - (side == 1), 420 - (side == 2), 80 + (side == 3), 80 + (side == 4));
            inner.Parent = &box;
            splitter.unAttachAllControls();
            splitter.attach(&inner);
            splitter.behave();
            EXPECT_EQ(inner.Visible, side == 0 || isSplitter) << "side " << side;
        }
    RectControl& control = attach(300, 100);
    for (const bool normallyVisible : {true, false}) {
        splitter.setAttachedControlNormallyVisible(&control, normallyVisible);
        control.Visible = false;
        splitter.behave();
        EXPECT_EQ(control.Visible, normallyVisible);
    }
}

TEST_P(Adjust, CentringTakesEffectAtOnceAndEndsResizing) {
    RectControl& control = attach(300, 100);
    auto& bound = add("bound", 200, 50);
    splitter.setMinAttachedControl(&bound, false);
    setRole(control, false, true, true);
    EXPECT_EQ(at(control), 250);  // 190 + 5 + 210/2 - 50
    EXPECT_EQ(Probe::role(splitter, control), "min center");
    splitter.setAttachedControlShouldResize(&control, true);
    EXPECT_EQ(Probe::role(splitter, control), "min resize");
}

TEST_P(Adjust, SplittersInThePanesBehaveAfterAMoveButPassNothingOn) {
    auto& other = add<SmartSplitter>("other", 500, 10);
    auto& crossing = stage.add<SmartSplitter>("crossing", !vertical(), 150, 10);
    int behaved = 0;
    other.Moved = crossing.Moved = [&](int /*distance*/) { ++behaved; };
    other.attach(&add("pane", 410, 90));
    other.setMaxLimit(2000);
    crossing.Event_Open();
    splitter.attach(&crossing);
    splitter.attach(&other);
    other.attach(&splitter);
    setLimits(0, 0, 2000, 0);
    splitter.moveDistance(20, false);
    splitter.behave();
    EXPECT_EQ((std::pair{at(other), behaved}), (std::pair{520, 1})) << "not the crossing one";
    splitter.DisableLiveDrag = true;
    splitter.setPosition(430);
    EXPECT_EQ((std::pair{at(other), behaved}), (std::pair{530, 1})) << "the controls follow";
    press();
    drag(20);
    EXPECT_EQ(at(other), 530);
    release();
    EXPECT_EQ((std::pair{at(other), behaved}), (std::pair{550, 2})) << "the end of a drag";
}

}  // namespace bracken::test
