#include "tests/splitter/stage.h"

namespace bracken::test {

class Limits : public SplitterTest {
  protected:
    // Fixed limits and offsets; a distant control is attached so that calls are not ignored.
    void openWith(int minLimit, int minOffset, int maxLimit, int maxOffset) {
        open();
        splitter.attach(&add("anchor", 700, 10));
        setLimits(minLimit, minOffset, maxLimit, maxOffset);
    }
};
INSTANTIATE_TEST_SUITE_P(Both, Limits, testing::Bool(), orientationName);

TEST_P(Limits, AMoveSnapsOrStopsAtTheZones) {
    struct Case {
        int from, distance, reached;
        bool snaps;
        bool stops = false;
    };
    // Zones: 0 to 60 and 535 to 600, the second one odd.
    const Case cases[] = {
        {100, -70, 60, false},        {100, -71, 0, true},          {100, -40, 60, false},
        {100, -39, 61, false},        {100, -500, 0, true},         {0, 29, 0, true},
        {0, 30, 60, false},           {500, 35, 535, false},        {500, 36, 535, false},
        {500, 67, 535, false},        {500, 68, 600, true},         {500, 900, 600, true},
        {600, -32, 600, true},        {600, -33, 535, false},       {300, 1, 301, false},
        {300, -500, 60, false, true}, {300, 500, 535, false, true},
    };
    openWith(0, 60, 600, 65);
    for (const Case& c : cases) {
        splitter.StopAtMinOffset = splitter.StopAtMaxOffset = c.stops;
        place(splitter, c.from);
        splitter.moveDistance(c.distance, false);
        EXPECT_EQ((std::pair{at(splitter), Probe::snapped(splitter)}),
                  (std::pair{c.reached, c.snaps}))
            << c.from << " by " << c.distance;
    }
    for (const int limit : {0, 600}) {
        splitter.StopAtMinOffset = splitter.StopAtMaxOffset = false;
        splitter.moveDistance(limit == 0 ? -1000 : 1000, false);
        place(splitter, 300);
        splitter.behave();
        EXPECT_EQ(at(splitter), limit) << "what has snapped stays there when the window changes";
    }
    setLimits(500, 0, 450, 0);
    splitter.moveDistance(-900, false);
    EXPECT_EQ(at(splitter), 450) << "the max limit wins where they cross";
}

TEST_P(Limits, ComeFromTheBoundingControls) {
    auto& min = add<PushButton>("min", 290, 110);
    auto& max = add<PushButton>("max", 410, 90);
    splitter.MinLimitOffset = -7;
    open();
    EXPECT_EQ(limits(), (std::pair{290 - 10, 410 + 90}))
        << "less the splitter's extent, plus the control's";
    EXPECT_EQ((std::pair{splitter.MinLimitOffset, splitter.MaxLimitOffset}), (std::pair{0, 30}));
    place(min, 250);
    axis().setExtent(max, 100);
    splitter.setMaxLimitOffset(&max);
    EXPECT_EQ(splitter.MaxLimitOffset, 510 - 410 + 10) << "from the limit of now";
    press();
    EXPECT_EQ(limits(), (std::pair{240, 510}));
    EXPECT_EQ(Probe::range(splitter), (std::pair{240, 510}));
    setLimits(0, -5, 444, -5);
    EXPECT_EQ(splitter.MaxLimitOffset + splitter.MinLimitOffset, 0);
    splitter.setMaxLimitOffset(&max);
    EXPECT_EQ(splitter.MaxLimitOffset, 444 - 410 + 10);
    splitter.setMinLimit(900);
    splitter.setMinLimitOffset(&max);
    EXPECT_EQ(splitter.MinLimitOffset, 410 + 100 - 900) << "with no lower bound";
    setLimits(9999, 0, 444, 0);
    splitter.moveDistance(-30, false);
    EXPECT_EQ(at(splitter), 370) << "9999 is the mark of a limit that is not derived yet";
    splitter.setMinLimit(9999);
    splitter.behave();
    EXPECT_EQ(limits(), (std::pair{0, 444})) << "set by hand they follow no control";
}

TEST_P(Limits, WithNothingAttachedFollowTheWindow) {
    open();
    EXPECT_EQ(limits(), (std::pair{0, windowSize() - 10}));
    splitter.setMaxLimit(300);
    EXPECT_EQ(at(splitter), 400) << "a new limit alone moves nothing";
    resizeWindow(windowSize() + 20);
    splitter.setProportion(0.1);
    splitter.setPosition(100);
    EXPECT_EQ(at(splitter), 320);
}

TEST_P(Limits, ProportionIsThatOfThePositionReached) {
    openWith(0, 0, 600, 0);
    splitter.behave();
    splitter.setProportion(0.3334);
    EXPECT_EQ(splitter.position(), 201) << "the distance is cut toward zero";
    EXPECT_FALSE(splitter.StayProportional);
    splitter.setMaxLimitOffset(250);
    splitter.moveDistance(900, false);
    splitter.setProportion("0.5");
    EXPECT_EQ(splitter.position(), 300) << "a snap is forgotten, and any type converted";
    EXPECT_DOUBLE_EQ(splitter.proportion(), 0.5);
    setLimits(0, 0, 600, 0);
    for (const auto& [value, reached] :
         {std::pair{Variant(2), 600}, {Variant(1), 600}, {Variant(0), 0}, {Variant(2.0), 600}}) {
        splitter.setProportion(value);
        EXPECT_EQ(at(splitter), reached);
    }
}

TEST_P(Limits, FollowsTheWindowInProportionAndResetMovesBack) {
    struct Case {
        bool farLock, proportional;
        int reached;
    };
    for (const Case& c : {Case{false, false, 400}, {true, false, 500}, {false, true, 479}}) {
        resizeWindow(500);
        auto& other = add<SmartSplitter>("other", 400, 10);
        other.LockRight = other.LockBottom = c.farLock;
        other.StayProportional = c.proportional;
        other.attach(&add<GroupBox>("min", 0, 100));
        resizeWindow(600);
        EXPECT_EQ(at(other), c.reached);
        other.setPosition(200);
        other.resetPosition();
        EXPECT_EQ(at(other), c.reached);
        place(other, 700);
    }
}

}  // namespace bracken::test
