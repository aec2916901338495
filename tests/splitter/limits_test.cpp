#include <cmath>

#include "framework/controls/buttons.h"
#include "framework/controls/plain_controls.h"
#include "framework/exception.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

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
        EXPECT_EQ(at(splitter), c.reached) << c.from << " by " << c.distance;
        EXPECT_EQ(Probe::snapped(splitter), c.snaps) << c.from << " by " << c.distance;
    }
    setLimits(500, 0, 450, 0);
    splitter.moveDistance(-900, false);
    EXPECT_EQ(at(splitter), 450) << "the max limit wins where they cross";
}

TEST_P(Limits, BehavingKeepsASnappedSplitterAtItsLimit) {
    openWith(0, 60, 600, 60);
    for (int limit : {0, 600}) {
        splitter.moveDistance(limit == 0 ? -1000 : 1000, false);
        place(splitter, 300);
        splitter.behave();
        EXPECT_EQ(at(splitter), limit);
        place(splitter, 300);
        splitter.moveDistance(0, false);
        EXPECT_EQ(at(splitter), 300) << "a drag starts at its position";
    }
}

TEST_P(Limits, ComeFromTheBoundingControls) {
    auto& min = add<PushButton>("min", 290, 110);
    auto& max = add<PushButton>("max", 410, 90);
    open();
    EXPECT_EQ(splitter.MinLimit, 290 - 10) << "less the splitter's extent, not the control's";
    EXPECT_EQ(splitter.MaxLimit, 410 + 90) << "plus the control's extent, not the splitter's";
    place(min, 250);
    axis().setExtent(max, 100);
    press();
    EXPECT_EQ(splitter.MinLimit, 240);
    EXPECT_EQ(splitter.MaxLimit, 510);
    EXPECT_EQ(Probe::proportionMin(splitter), 240);
    EXPECT_EQ(Probe::proportionMax(splitter), 510);
    splitter.setMaxLimit(444);
    splitter.setMaxLimitOffset(-5);
    splitter.setMinLimitOffset(-5);
    EXPECT_EQ(splitter.MaxLimitOffset + splitter.MinLimitOffset, 0);
    splitter.setMaxLimitOffset(&max);
    EXPECT_EQ(splitter.MaxLimit, 444) << "set by hand it follows no control";
    EXPECT_EQ(splitter.MaxLimitOffset, 444 - 410 + 10);
    splitter.setMinLimit(900);
    splitter.setMinLimitOffset(&max);
    EXPECT_EQ(splitter.MinLimit, 900);
    EXPECT_EQ(splitter.MinLimitOffset, 410 + 100 - 900) << "with no lower bound";
    RectControl* nothing = nullptr;
    EXPECT_THROW(splitter.setMinLimitOffset(nothing), NilObjectException);
    EXPECT_THROW(splitter.setMaxLimitOffset(nothing), NilObjectException);
}

TEST_P(Limits, TheMarkOfALimitNotDerivedCountsAsNone) {
    openWith(9999, 0, 600, 0);
    splitter.moveDistance(-30, false);
    EXPECT_EQ(at(splitter), 370);
    splitter.setMinLimit(9999);
    splitter.behave();
    EXPECT_EQ(splitter.MinLimit, 0);
}

TEST_P(Limits, GivenByTheAuthorStayButTheRangeFollows) {
    splitter.MinLimit = 350;
    splitter.MaxLimit = 450;
    auto& min = add<PushButton>("min", 290, 110);
    add<PushButton>("max", 410, 90);
    open();
    place(min, 280);
    splitter.behave();
    EXPECT_EQ(splitter.MinLimit, 350);
    EXPECT_EQ(splitter.MaxLimit, 450);
    EXPECT_EQ(Probe::proportionMin(splitter), 270);
    EXPECT_EQ(Probe::proportionMax(splitter), 500);
    splitter.setMaxLimit(460);
    resizeWindow(windowSize() + 25);
    EXPECT_EQ(splitter.MaxLimit, 460);
    EXPECT_EQ(Probe::proportionMax(splitter), 485) << "the limit and the latest change";
    splitter.behave();
    EXPECT_EQ(Probe::proportionMax(splitter), 460);
}

TEST_P(Limits, WithNothingAttachedFollowTheWindow) {
    open();
    EXPECT_EQ(splitter.MinLimit, 0);
    EXPECT_EQ(splitter.MaxLimit, windowSize() - 10);
    resizeWindow(windowSize() - 50);
    EXPECT_EQ(splitter.MaxLimit, windowSize() - 10);
    splitter.setMaxLimit(300);
    EXPECT_EQ(at(splitter), 400) << "a new limit alone moves nothing";
    resizeWindow(windowSize() + 20);
    EXPECT_EQ(splitter.MaxLimit, 320) << "still follows, from the new value";
    EXPECT_EQ(at(splitter), 320);
    splitter.showWarningsDialogs = true;
    for (std::string name : {"setPosition", "setProportion"})
        platform.expectBox("SmartSplitter 'splitter' method '" + name +
                           "' WARNING:\n\nAll controls should be attached BEFORE calling this "
                           "method.   Call will be ignored.");
    for (int i = 0; i < 2; ++i) {
        splitter.setPosition(100);
        splitter.setProportion(0.1);
        splitter.showWarningsDialogs = false;
    }
    EXPECT_EQ(at(splitter), 320);
}

TEST_P(Limits, MovedIsRaisedForEachMoveAndEachBehave) {
    openWith(0, 0, 600, 0);
    std::vector<int> moves;
    splitter.Moved = [&](int distance) { moves.push_back(distance); };
    for (auto [distance, behaving] : {std::pair{0, false}, {-30, false}, {0, true}, {900, false}})
        splitter.moveDistance(distance, behaving);
    EXPECT_EQ(moves, (std::vector<int>{-30, 0, 230}));
}

TEST_P(Limits, ProportionIsThatOfThePositionReached) {
    openWith(0, 0, 600, 0);
    splitter.behave();
    splitter.moveDistance(-250, false);
    EXPECT_EQ(splitter.position(), 150);
    EXPECT_DOUBLE_EQ(splitter.proportion(), 0.25);
    splitter.setProportion(0.3334);
    EXPECT_EQ(splitter.position(), 200) << "the distance is cut toward zero";
    EXPECT_FALSE(splitter.StayProportional);
    splitter.setMaxLimitOffset(250);
    splitter.moveDistance(900, false);
    splitter.setProportion("0.5");
    EXPECT_EQ(splitter.position(), 300) << "a snap is forgotten, and any type converted";
    splitter.StopAtMaxOffset = true;
    splitter.setMaxLimitOffset(450);
    splitter.setProportion(0.5);
    EXPECT_DOUBLE_EQ(splitter.proportion(), 0.25) << "what limits have clamped stays clamped";
    setLimits(0, 0, 600, 0);
    for (auto [asked, kept] : {std::pair{7.0, 1.0}, {-7.0, 0.0}}) {
        splitter.setProportion(asked);
        EXPECT_DOUBLE_EQ(splitter.proportion(), kept);
    }
    splitter.showWarningsDialogs = true;
    for (const Variant& refused : {Variant(2), Variant(2.5F), Variant("3")}) {
        platform.expectBox(
            "The value type passed to the SmartSplitter 'splitter' method 'setProportion' is not a "
            "single or double.\n\nProportion must be referenced as a single or double - double is "
            "preferred as that is how it is referenced internally.");
        splitter.setProportion(refused);
        EXPECT_EQ(at(splitter), 0);
    }
    for (const auto& [accepted, reached] :
         {std::pair{Variant(1), 600}, {Variant(0), 0}, {Variant(2.0), 600}}) {
        splitter.setProportion(accepted);
        EXPECT_EQ(at(splitter), reached);
    }
}

TEST_P(Limits, AnEmptyRangeGivesNaNAndNoError) {
    splitter.MinLimit = -10;
    splitter.MaxLimit = 700;
    auto& control = add("control", 700, 10);
    splitter.Open = [&] {
        splitter.attach(&control);
        splitter.setMaxLimit(0);
    };
    open();
    EXPECT_FALSE(std::isfinite(splitter.proportion()));
    place(splitter, 0);
    splitter.moveDistance(0, true);
    EXPECT_EQ(splitter.proportion(), 0.0) << "0/0 counts as the low end";
}

TEST_P(Limits, StayingProportionalFollowsTheWindow) {
    splitter.StayProportional = true;
    auto& max = add<GroupBox>("max", 410, windowSize() - 410);
    add<GroupBox>("min", 0, 400);
    max.LockLeft = max.LockRight = max.LockTop = max.LockBottom = true;
    open();
    double range = windowSize() + 10;
    EXPECT_DOUBLE_EQ(splitter.proportion(), 410 / range);
    int before = windowSize();
    resizeWindow(before * 2);
    EXPECT_EQ(at(splitter), static_cast<int>((before * 2 + 10) * (410 / range)) - 10);
    splitter.setPosition(200);
    EXPECT_EQ(at(splitter), 200);
    splitter.resetPosition();
    EXPECT_NEAR(splitter.proportion(), 410 / range, 0.001);
}

TEST_P(Limits, ResetMovesBackToTheOpeningPosition) {
    for (auto [farLock, reached] : {std::pair{false, 400}, {true, 450}}) {
        auto& other = add<SmartSplitter>("other", 400, 10);
        other.LockRight = other.LockBottom = farLock;
        other.attach(&add<GroupBox>("min", 0, 100));
        other.setMaxLimit(2000);
        resizeWindow(windowSize() + 50);
        other.setPosition(200);
        other.resetPosition();
        EXPECT_EQ(at(other), reached);
        resizeWindow(vertical() ? 800 : 600);
    }
}

}  // namespace
}  // namespace bracken::test
