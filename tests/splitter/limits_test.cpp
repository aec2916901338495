#include <cmath>

#include "framework/controls/buttons.h"
#include "framework/controls/plain_controls.h"
#include "framework/exception.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

using Probe = SmartSplitterProbe;

class Limits : public SplitterTest {
  protected:
    // Fixed limits and offsets; a distant control is attached so that calls are not ignored.
    void openWith(int minLimit, int minOffset, int maxLimit, int maxOffset) {
        open();
        splitter.attach(&add("anchor", 700, 10));
        splitter.setMinLimit(minLimit);
        splitter.setMaxLimit(maxLimit);
        splitter.setMinLimitOffset(minOffset);
        splitter.setMaxLimitOffset(maxOffset);
    }
    void place(int position) { axis().setPosition(splitter, position); }
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
        {100, -69, 60, false},        {100, -70, 60, false},
        {100, -71, 0, true},          {100, -40, 60, false},
        {100, -41, 60, false},        {100, -39, 61, false},
        {100, -500, 0, true},         {0, 29, 0, true},
        {0, 30, 60, false},           {500, 35, 535, false},
        {500, 36, 535, false},        {500, 67, 535, false},
        {500, 68, 600, true},         {500, 900, 600, true},
        {600, -32, 600, true},        {600, -33, 535, false},
        {300, 0, 300, false},         {300, 1, 301, false},
        {300, -500, 60, false, true}, {300, 500, 535, false, true},
    };
    openWith(0, 60, 600, 65);
    for (const Case& c : cases) {
        splitter.StopAtMinOffset = splitter.StopAtMaxOffset = c.stops;
        place(c.from);
        splitter.moveDistance(c.distance, false);
        EXPECT_EQ(at(splitter), c.reached) << c.from << " by " << c.distance;
        EXPECT_EQ(Probe::snapped(splitter), c.snaps) << c.from << " by " << c.distance;
    }
    splitter.setMinLimitOffset(0);
    splitter.moveDistance(-900, false);
    EXPECT_EQ(at(splitter), 0);
    EXPECT_FALSE(Probe::snapped(splitter)) << "set to stop, it is there without snapping";
}

TEST_P(Limits, BehavingKeepsASnappedSplitterAtItsLimit) {
    openWith(0, 60, 600, 60);
    splitter.moveDistance(-1000, false);
    splitter.setMinLimit(10);
    axis().setPosition(splitter, 90);
    splitter.behave();
    EXPECT_EQ(at(splitter), 10);
    splitter.moveDistance(1000, false);
    axis().setPosition(splitter, 300);
    splitter.moveDistance(0, true);
    EXPECT_EQ(at(splitter), 600);
    axis().setPosition(splitter, 300);
    splitter.moveDistance(0, false);
    EXPECT_EQ(at(splitter), 300) << "a drag starts at its position";
}

TEST_P(Limits, ComeFromTheBoundingControls) {
    auto& min = add<PushButton>("min", 290, 110);
    auto& max = add<PushButton>("max", 410, 90);
    open();
    EXPECT_EQ(splitter.MinLimit, 290 - 10) << "less the splitter's extent, not the control's";
    EXPECT_EQ(splitter.MaxLimit, 410 + 90) << "plus the control's extent, not the splitter's";
    axis().setPosition(min, 250);
    axis().setExtent(max, 100);
    press(5);
    EXPECT_EQ(splitter.MinLimit, 240);
    EXPECT_EQ(splitter.MaxLimit, 510);
    EXPECT_EQ(Probe::proportionMin(splitter), 240);
    EXPECT_EQ(Probe::proportionMax(splitter), 510);
}

TEST_P(Limits, GivenByTheAuthorStayButTheRangeFollows) {
    splitter.MinLimit = 350;
    splitter.MaxLimit = 450;
    auto& min = add<PushButton>("min", 290, 110);
    add<PushButton>("max", 410, 90);
    open();
    axis().setPosition(min, 280);
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
    EXPECT_EQ(Probe::proportionMin(splitter), 0);
    splitter.setMaxLimit(300);
    EXPECT_EQ(at(splitter), 400) << "a new limit alone moves nothing";
    resizeWindow(windowSize() + 20);
    EXPECT_EQ(splitter.MaxLimit, 320) << "still follows, from the new value";
    EXPECT_EQ(at(splitter), 320);
}

TEST_P(Limits, SetByHandDropTheBoundingControl) {
    add<PushButton>("min", 290, 110);
    auto& max = add<PushButton>("max", 410, 90);
    open();
    splitter.setMinLimit(9999);
    splitter.behave();
    EXPECT_EQ(splitter.MinLimit, 0) << "the mark of a limit not derived yet";
    EXPECT_EQ(Probe::minControl(splitter), nullptr);
    splitter.setMaxLimit(444);
    EXPECT_EQ(Probe::maxControl(splitter), nullptr);
    EXPECT_EQ(splitter.MaxLimit, 444);
    splitter.setMaxLimitOffset(-5);
    splitter.setMinLimitOffset(-5);
    EXPECT_EQ(splitter.MaxLimitOffset, 0);
    EXPECT_EQ(splitter.MinLimitOffset, 0);
    splitter.setMaxLimitOffset(&max);
    EXPECT_EQ(splitter.MaxLimitOffset, 444 - at(max) + 10);
    splitter.setMinLimit(0);
    splitter.setMinLimitOffset(&max);
    EXPECT_EQ(splitter.MinLimitOffset, at(max) + 90);
    splitter.setMinLimit(900);
    splitter.setMinLimitOffset(&max);
    EXPECT_LT(splitter.MinLimitOffset, 0) << "with no lower bound";
    RectControl* nothing = nullptr;
    EXPECT_THROW(splitter.setMinLimitOffset(nothing), NilObjectException);
    EXPECT_THROW(splitter.setMaxLimitOffset(nothing), NilObjectException);
}

TEST_P(Limits, MovedIsRaisedForEachMoveAndEachBehave) {
    openWith(0, 0, 600, 0);
    std::vector<int> moves;
    splitter.Moved = [&](int distance) { moves.push_back(distance); };
    splitter.moveDistance(0, false);
    splitter.moveDistance(-30, false);
    splitter.moveDistance(0, true);
    splitter.moveDistance(900, false);
    EXPECT_EQ(moves, (std::vector<int>{-30, 0, 230}));
}

TEST_P(Limits, ProportionIsThatOfThePositionReached) {
    openWith(0, 0, 600, 0);
    splitter.behave();
    splitter.moveDistance(-250, false);
    EXPECT_EQ(splitter.position(), 150);
    EXPECT_DOUBLE_EQ(splitter.proportion(), 0.25);
    splitter.setProportion(0.5);
    EXPECT_EQ(splitter.position(), 300);
    EXPECT_FALSE(splitter.StayProportional);
    splitter.setProportion(0.3334);
    EXPECT_EQ(splitter.position(), 201) << "the distance is cut toward zero: 300 - 99.96";
    splitter.setMaxLimitOffset(250);
    splitter.setProportion(0.5);
    EXPECT_EQ(splitter.position(), 300);
    splitter.StopAtMaxOffset = true;
    splitter.setMaxLimitOffset(450);
    splitter.setProportion(0.5);
    EXPECT_DOUBLE_EQ(splitter.proportion(), 0.25) << "what limits have clamped stays clamped";
    splitter.setMinLimitOffset(0);
    splitter.setMaxLimitOffset(0);
    for (auto [asked, kept] : {std::pair{7.0, 1.0}, {-7.0, 0.0}}) {
        splitter.setProportion(asked);
        EXPECT_DOUBLE_EQ(splitter.proportion(), kept);
    }
}

TEST_P(Limits, StayingProportionalFollowsTheWindow) {
    splitter.StayProportional = true;
    add<GroupBox>("min", 0, 400);
    lockBothEnds(add<GroupBox>("max", 410, windowSize() - 410));
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
    axis().setPosition(splitter, 0);
    splitter.moveDistance(0, true);
    EXPECT_EQ(splitter.proportion(), 0.0) << "0/0 counts as the low end";
}

TEST_P(Limits, CallsAreIgnoredWhileNothingIsAttached) {
    open();
    splitter.setPosition(100);
    splitter.setProportion(0.1);
    splitter.showWarningsDialogs = true;
    for (std::string name : {"setPosition", "setProportion"})
        platform.expectBox("SmartSplitter 'splitter' method '" + name +
                           "' WARNING:\n\nAll controls should be attached BEFORE calling this "
                           "method.   Call will be ignored.");
    splitter.setPosition(100);
    splitter.setProportion(0.1);
    EXPECT_EQ(at(splitter), 400);
}

TEST_P(Limits, TheTypeOfAProportionIsCheckedOnlyWithWarnings) {
    openWith(0, 0, 600, 0);
    splitter.behave();
    splitter.setProportion("0.5");
    EXPECT_EQ(at(splitter), 300) << "converted from any type";
    splitter.setProportion(1);
    EXPECT_EQ(at(splitter), 600);
    splitter.showWarningsDialogs = true;
    const std::string text =
        "The value type passed to the SmartSplitter 'splitter' method 'setProportion' is not a "
        "single or double.\n\nProportion must be referenced as a single or double - double is "
        "preferred as that is how it is referenced internally.";
    for (const Variant& refused : {Variant(2), Variant(2.5F), Variant("3")}) {
        platform.expectBox(text);
        splitter.setProportion(refused);
        EXPECT_EQ(at(splitter), 600);
    }
    splitter.setProportion(0);
    EXPECT_EQ(at(splitter), 0);
    splitter.setProportion(2.0);
    EXPECT_EQ(at(splitter), 600);
}

TEST_P(Limits, ResetMovesBackToTheOpeningPosition) {
    struct Case {
        bool farLock;
        int reached;
    };
    for (const Case& c : {Case{false, 400}, Case{true, 450}}) {
        auto& other = add<SmartSplitter>("other", 400, 10);
        if (c.farLock) lockFarEnd(other);
        other.attach(&add<GroupBox>("min", 0, 100));
        other.setMaxLimit(2000);
        resizeWindow(windowSize() + 50);
        other.setPosition(200);
        EXPECT_EQ(at(other), 200);
        other.resetPosition();
        EXPECT_EQ(at(other), c.reached);
        resizeWindow(vertical() ? 800 : 600);
    }
}

}  // namespace
}  // namespace bracken::test
