#include "framework/controls/buttons.h"
#include "framework/controls/listbox.h"
#include "framework/controls/panels.h"
#include "framework/controls/plain_controls.h"
#include "framework/exception.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

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
        {406, 50, 100, 200, true},  {405, 50, 100, 200, false},  {350, 200, 100, 200, false},
        {300, 100, 304, 50, true},  {300, 100, 305, 50, false},  {300, 100, 50, 46, true},
        {300, 100, 50, 45, false},  {300, 100, 150, 20, true},   {300, 100, 0, 600, true},
        {300, 100, 96, 300, true},  {300, 100, 104, 192, true},  {300, 100, -100, 196, true},
    };
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
    auto& tabs = add<TabPanel>("tabs", 700, 50);
    auto& pages = add<PagePanel>("pages", 700, 50);
    splitter.TabPanelIndex = 1;
    for (RectControl* panel : {static_cast<RectControl*>(&tabs), static_cast<RectControl*>(&pages)})
        for (RectControl* parent : {panel, static_cast<RectControl*>(nullptr)})
            for (int page : {1, 2}) {
                auto& control = add("control", 410, 50);
                splitter.Parent = panel;
                control.Parent = parent;
                control.TabPanelIndex = page;
                splitter.unAttachAllControls();
                splitter.attachNearbyControls();
                EXPECT_EQ(Probe::names(splitter), parent != nullptr && page == 1 ? "control " : "");
                splitter.attach(&control);
                EXPECT_EQ(Probe::names(splitter), "control ") << "by hand it is attached";
                place(control, 700);
            }
}

TEST_P(Attach, KeepsTheWindowsOrderAndSkipsWhatIsNoNeighbour) {
    stage.owned.push_back(std::make_shared<Timer>(stage, "timer"));
    add("after", 408, 50);
    add<Line>("line", 404, 50);
    add("before", 300, 100);
    axis().setExtent(splitter, 4);  // thin: it touches itself
    add("nearBoth", 404, 50);
    open();
    EXPECT_EQ(Probe::names(splitter), "after before nearBoth ");
    splitter.attach(nullptr);
    splitter.attachNearbyControls();
    EXPECT_EQ(Probe::names(splitter), "after before nearBoth ") << "nothing is attached twice";
}

TEST_P(Attach, ChoosesTheRoleBySideClassAndContainer) {
    auto& box = add<GroupBox>("box", 200, 200);
    auto& inside = add<Listbox>("inside", 250, 146);
    auto& shortOne = add<Listbox>("short", 250, 145);
    auto& inner = add<Listbox>("inner", 250, 154);
    auto& far = add<GroupBox>("far", 410, 200);
    auto& farInside = add<Listbox>("farInside", 450, 160);
    inside.Parent = &box;
    shortOne.Parent = &box;
    inner.Parent = &inside;
    farInside.Parent = &far;
    auto& button = add<PushButton>("button", 399, 100);
    auto& level = add<PushButton>("level", 400, 100);
    button.Visible = false;
    for (RectControl* control : {static_cast<RectControl*>(&box), static_cast<RectControl*>(&far),
                                 static_cast<RectControl*>(&button)})
        splitter.attach(control);
    EXPECT_EQ(splitter.MaxLimitOffset, 100);
    splitter.attach(&level);
    EXPECT_EQ(Probe::names(splitter), "box inside inner short far farInside button level ");
    const std::pair<RectControl*, const char*> roles[] = {
        {&box, "min resize"},    {&inside, "min resize"},   {&shortOne, "min"},
        {&inner, "min"},         {&far, "max move resize"}, {&farInside, "max"},
        {&button, "min hidden"}, {&level, "max move"},
    };
    for (const auto& [control, role] : roles)
        EXPECT_EQ(Probe::role(splitter, *control), role) << control->name();
    EXPECT_EQ(splitter.MinLimitOffset, 100);
    EXPECT_EQ(splitter.MaxLimitOffset, 100) << "the largest that one asks for";
    splitter.unAttach(&box, false);
    EXPECT_EQ(Probe::names(splitter), "far farInside button level ");
    splitter.unAttachAllControls();
    splitter.doNotAttachEmbeddedControls = true;
    splitter.attach(&box);
    EXPECT_EQ(Probe::names(splitter), "box ");
}

TEST_P(Attach, KeepsAnOffsetThatTheAuthorGave) {
    auto& min = add("min", 300, 100);
    auto& max = add("max", 410, 100);
    struct Case {
        int minGiven, maxGiven, minKept, maxKept;
    };
    // A negative one counts as given too.
    for (const Case& c : {Case{7, 0, 7, 30}, {0, 7, 30, 7}, {-7, 0, 0, 30}, {0, -7, 30, 0}}) {
        auto& made = add<SmartSplitter>("made", 400, 10);
        made.MinLimitOffset = c.minGiven;
        made.MaxLimitOffset = c.maxGiven;
        made.Open = [&] { made.attach(&min); };
        made.attach(&max);
        EXPECT_EQ(made.MinLimitOffset, c.minKept) << c.minGiven << " " << c.maxGiven;
        EXPECT_EQ(made.MaxLimitOffset, c.maxKept) << c.minGiven << " " << c.maxGiven;
    }
    splitter.setMinLimitOffset(12);
    splitter.unAttachAllControls();
    splitter.attach(&min);
    EXPECT_EQ(splitter.MinLimitOffset, 30) << "one that was set after opening is raised";
}

TEST_P(Attach, FindsTheBoundsByNearEdgeAndFarEdge) {
    open();
    auto& a = add("a", 300, 100);
    auto& x = add("x", 420, 100);
    auto& c = add("c", 299, 20);
    auto& z = add("z", 400, 121);
    for (auto* control : {&a, &add("b", 300, 50), &x, &add("y", 410, 110)})
        splitter.attach(control);
    EXPECT_EQ(Probe::minControl(splitter), &a) << "a tie keeps the earlier one";
    EXPECT_EQ(Probe::maxControl(splitter), &x) << "a tie keeps the earlier one";
    splitter.attach(&c);
    EXPECT_EQ(Probe::minControl(splitter), &c);
    splitter.attach(&z);
    splitter.unAttach(&z, false);
    EXPECT_EQ(Probe::maxControl(splitter), &z) << "detaching keeps the bounds";
    splitter.setMinAttachedControl(nullptr, false);
    splitter.setMaxAttachedControl(nullptr, false);
    EXPECT_EQ(Probe::minControl(splitter), nullptr);
    EXPECT_THROW(splitter.setMinAttachedControl(nullptr, true), NilObjectException);
    EXPECT_THROW(splitter.setMaxAttachedControl(nullptr, true), NilObjectException);
    // A container's controls are all cast, which a timer can't be.
    auto& box = add<GroupBox>("box", 410, 100);
    splitter.attach(&box);
    stage.owned.push_back(std::make_shared<Timer>(stage, "timer"));
    EXPECT_NO_THROW(splitter.unAttach(&a, false));
    EXPECT_THROW(splitter.unAttach(&box, false), IllegalCastException);
}

TEST_P(Attach, AControlIsEitherCentredOrResized) {
    open();
    auto& control = add("control", 300, 100);
    splitter.attach(&control);
    splitter.setAttachedControlShouldMove(&control, true);
    splitter.setAttachedControlShouldResize(&control, true);
    splitter.setAttachedControlShouldCenter(&control, true);
    EXPECT_EQ(Probe::role(splitter, control), "min move center");
    splitter.setAttachedControlShouldResize(&control, false);
    EXPECT_EQ(Probe::role(splitter, control), "min move center");
    splitter.setAttachedControlShouldResize(&control, true);
    EXPECT_EQ(Probe::role(splitter, control), "min move resize");
}

TEST_P(Attach, WarnsTheAuthorOnlyIfAsked) {
    auto& control = add("list", 700, 50);
    using S = SmartSplitter;
    const std::pair<std::string, void (S::*)(RectControl*, bool)> calls[] = {
        {"unAttach", &S::unAttach},
        {"setAttachedControlShouldResize", &S::setAttachedControlShouldResize},
        {"setAttachedControlShouldMove", &S::setAttachedControlShouldMove},
        {"setAttachedControlShouldCenter", &S::setAttachedControlShouldCenter},
        {"setAttachedControlNormallyVisible", &S::setAttachedControlNormallyVisible},
    };
    open();
    splitter.setAttachedControlMinSizeVisible(&control, 1);
    splitter.showWarningsDialogs = true;
    const std::string method = "passed to the SmartSplitter 'splitter' method '";
    platform.expectBox("The control " + method +
                       "setAttachedControlMinSizeVisible' is NIL.\n\nDon't go calling this method "
                       "with nonexistent controls!");
    splitter.setAttachedControlMinSizeVisible(nullptr, 1);
    for (const auto& [name, call] : calls) {
        platform.expectBox("The control 'list' " + method + name +
                           "' has not been attached.\n\nControl must be attached BEFORE calling "
                           "this method.");
        (splitter.*call)(&control, false);
    }
    splitter.unAttach(&control, true);
    splitter.attach(&control);
    platform.expectBox(
        "The control 'list' is already attached to smartSplitter 'splitter'.   This attach request "
        "will be ignored.");
    for (bool warns : {true, false}) {
        splitter.showWarningsDialogs = warns;
        splitter.attach(&control);
    }
}

}  // namespace
}  // namespace bracken::test
