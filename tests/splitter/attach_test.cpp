#include "framework/controls/buttons.h"
#include "framework/controls/listbox.h"
#include "framework/controls/panels.h"
#include "framework/controls/plain_controls.h"
#include "framework/exception.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

using Names = std::vector<std::string>;
using Probe = SmartSplitterProbe;

class Attach : public SplitterTest {};
INSTANTIATE_TEST_SUITE_P(Both, Attach, testing::Bool(), orientationName);

TEST_P(Attach, AttachesWhatTouchesTheSplitter) {
    struct Case {
        int position, extent, crossPosition, crossExtent;
        bool touches;
    };
    // The splitter reaches from 400 to 410 along its axis, from 100 to 300 across it.
    const Case cases[] = {
        {300, 100, 100, 200, true}, {300, 104, 100, 200, true},  {300, 105, 100, 200, false},
        {300, 96, 100, 200, true},  {300, 95, 100, 200, false},  {410, 50, 100, 200, true},
        {414, 50, 100, 200, true},  {415, 50, 100, 200, false},  {406, 50, 100, 200, true},
        {405, 50, 100, 200, false}, {350, 200, 100, 200, false}, {300, 100, 304, 50, true},
        {300, 100, 305, 50, false}, {300, 100, 50, 46, true},    {300, 100, 50, 45, false},
        {300, 100, 150, 20, true},  {300, 100, 0, 600, true},    {300, 100, 96, 300, true},
        {300, 100, 104, 192, true}, {300, 100, -100, 196, true}, {300, 100, -100, 195, false},
    };
    for (const Case& c : cases) {
        auto& control = add("control", c.position, c.extent);
        cross().setPosition(control, c.crossPosition);
        cross().setExtent(control, c.crossExtent);
        splitter.unAttachAllControls();
        splitter.attachNearbyControls();
        EXPECT_EQ(Probe::attached(splitter).size(), c.touches ? 1U : 0U)
            << c.position << " " << c.extent << " " << c.crossPosition << " " << c.crossExtent;
        axis().setPosition(control, 700);
    }
}

TEST_P(Attach, AttachesOnlyNeighboursOfTheSameContainerAndPage) {
    struct Case {
        bool tabs;
        int page;
        bool inside;
        bool attached;
    };
    const Case cases[] = {{true, 1, true, true},
                          {true, 2, true, false},
                          {false, 1, true, true},
                          {false, 2, true, false},
                          {true, 1, false, false}};
    for (const Case& c : cases) {
        RectControl& panel = c.tabs ? static_cast<RectControl&>(add<TabPanel>("panel", 700, 50))
                                    : add<PagePanel>("panel", 700, 50);
        auto& control = add("control", 410, 50);
        splitter.Parent = &panel;
        splitter.TabPanelIndex = 1;
        control.Parent = c.inside ? &panel : nullptr;
        control.TabPanelIndex = c.page;
        splitter.unAttachAllControls();
        splitter.attachNearbyControls();
        EXPECT_EQ(Probe::names(splitter), c.attached ? Names{"control"} : Names{});
        axis().setPosition(control, 700);
    }
    auto& elsewhere = add("elsewhere", 410, 50);
    elsewhere.TabPanelIndex = 7;
    splitter.attach(&elsewhere);
    EXPECT_EQ(Probe::names(splitter), Names{"elsewhere"}) << "by hand it is attached";
}

TEST_P(Attach, KeepsTheWindowsOrderAndSkipsWhatIsNoNeighbour) {
    stage.keep(std::make_shared<Timer>(stage, "timer"));
    add("after", 410, 50);
    add<Line>("line", 410, 50);
    add("before", 300, 100);
    axis().setExtent(splitter, 4);  // thin: it touches itself
    add("nearBoth", 404, 50);
    open();
    EXPECT_EQ(Probe::names(splitter), (Names{"before", "nearBoth"}));
    splitter.attach(nullptr);
    splitter.attach(&splitter);
    splitter.attachNearbyControls();
    EXPECT_EQ(Probe::attached(splitter).size(), 2U) << "what is attached already is ignored";
}

TEST_P(Attach, ChoosesTheRoleBySideAndClass) {
    auto& minList = add<Listbox>("minList", 300, 100);
    auto& minButton = add<PushButton>("minButton", 300, 100);
    auto& level = add<PushButton>("level", 400, 100);
    auto& maxList = add<Listbox>("maxList", 410, 100);
    minButton.Visible = false;
    struct Case {
        RectControl& control;
        bool behind, move, resize, shown;
    };
    const Case cases[] = {{minList, true, false, true, true},
                          {minButton, true, false, false, false},
                          {level, false, true, false, true},
                          {maxList, false, true, true, true}};
    for (const Case& c : cases) {
        splitter.attach(&c.control);
        auto& role = entry(c.control);
        EXPECT_EQ(role.behind, c.behind) << c.control.name();
        EXPECT_EQ(role.shouldMove, c.move) << c.control.name();
        EXPECT_EQ(role.shouldResize, c.resize) << c.control.name();
        EXPECT_EQ(role.normallyVisible, c.shown) << c.control.name();
        EXPECT_FALSE(role.shouldCenter);
        EXPECT_EQ(role.size, 100);
    }
    EXPECT_EQ(splitter.MinLimitOffset, vertical() ? 86 : 30);
    EXPECT_EQ(splitter.MaxLimitOffset, vertical() ? 86 : 30);
}

TEST_P(Attach, KeepsAnOffsetThatTheAuthorGave) {
    splitter.MinLimitOffset = 7;
    splitter.MaxLimitOffset = -7;
    open();
    splitter.setMaxLimitOffset(0);
    splitter.attach(&add("min", 300, 100));
    splitter.attach(&add("max", 410, 100));
    EXPECT_EQ(splitter.MinLimitOffset, 7);
    EXPECT_EQ(splitter.MaxLimitOffset, 0) << "also a negative one counts as given";
    auto& other = add<SmartSplitter>("other", 500, 10);
    other.setMinLimitOffset(12);
    other.attach(&add("min", 400, 100));
    EXPECT_EQ(other.MinLimitOffset, 30) << "one that was set after opening is raised";
}

TEST_P(Attach, AttachesAContainersContentsToo) {
    struct Case {
        int position, innerPosition, innerExtent;
        bool resizes;
    };
    // The container is 200 long, so its far edge lies 200 beyond its position.
    const Case cases[] = {{200, 250, 150, true},
                          {200, 250, 146, true},
                          {200, 250, 145, false},
                          {200, 250, 154, true},
                          {410, 450, 160, false}};
    for (const Case& c : cases) {
        auto& box = add<GroupBox>("box", c.position, 200);
        auto& list = add<Listbox>("list", c.innerPosition, c.innerExtent);
        auto& inner = add<Listbox>("inner", c.innerPosition, 10);
        list.Parent = &box;
        inner.Parent = &list;
        splitter.unAttachAllControls();
        splitter.attach(&box);
        EXPECT_EQ(Probe::names(splitter), (Names{"box", "list", "inner"}));
        EXPECT_EQ(entry(list).shouldResize, c.resizes) << c.innerPosition << " " << c.innerExtent;
        EXPECT_FALSE(entry(list).shouldMove);
        splitter.unAttach(&box, false);
        EXPECT_EQ(Probe::names(splitter), Names{});
    }
    splitter.unAttachAllControls();
    splitter.doNotAttachEmbeddedControls = true;
    auto& box = add<GroupBox>("alone", 200, 200);
    add<Listbox>("skipped", 250, 50).Parent = &box;
    splitter.attach(&box);
    EXPECT_EQ(Probe::names(splitter), Names{"alone"});
}

TEST_P(Attach, FindsTheBoundsByNearEdgeAndFarEdge) {
    open();
    auto& a = add("a", 300, 100);
    auto& b = add("b", 300, 50);
    auto& c = add("c", 299, 20);
    auto& x = add("x", 420, 100);
    auto& y = add("y", 410, 110);
    auto& z = add("z", 400, 121);
    for (auto* control : {&a, &b}) splitter.attach(control);
    EXPECT_EQ(Probe::minControl(splitter), &a) << "a tie keeps the earlier one";
    splitter.attach(&c);
    EXPECT_EQ(Probe::minControl(splitter), &c);
    for (auto* control : {&x, &y}) splitter.attach(control);
    EXPECT_EQ(Probe::maxControl(splitter), &x) << "a tie keeps the earlier one";
    splitter.attach(&z);
    EXPECT_EQ(Probe::maxControl(splitter), &z);
    splitter.unAttach(&z, false);
    EXPECT_EQ(Probe::maxControl(splitter), &z) << "detaching keeps the bounds";
    splitter.setMinAttachedControl(&a, false);
    EXPECT_EQ(Probe::minControl(splitter), &a);
    splitter.setMinAttachedControl(nullptr, false);
    splitter.setMaxAttachedControl(nullptr, false);
    EXPECT_EQ(Probe::minControl(splitter), nullptr);
    EXPECT_THROW(splitter.setMinAttachedControl(nullptr, true), NilObjectException);
    EXPECT_THROW(splitter.setMaxAttachedControl(nullptr, true), NilObjectException);
    splitter.unAttachAllControls();
    EXPECT_EQ(Probe::names(splitter), Names{});
}

TEST_P(Attach, DetachingAContainerCastsEveryControl) {
    open();
    auto& box = add<GroupBox>("box", 410, 100);
    auto& button = add<PushButton>("button", 410, 100);
    splitter.attach(&box);
    splitter.attach(&button);
    stage.keep(std::make_shared<Timer>(stage, "timer"));
    EXPECT_NO_THROW(splitter.unAttach(&button, false));
    EXPECT_THROW(splitter.unAttach(&box, false), IllegalCastException);
    EXPECT_EQ(Probe::names(splitter), Names{});
}

TEST_P(Attach, AControlIsEitherCentredOrResized) {
    open();
    auto& control = add("control", 300, 100);
    splitter.attach(&control);
    splitter.setAttachedControlShouldMove(&control, true);
    splitter.setAttachedControlShouldResize(&control, true);
    splitter.setAttachedControlShouldCenter(&control, true);
    EXPECT_TRUE(entry(control).shouldCenter && entry(control).shouldMove);
    EXPECT_FALSE(entry(control).shouldResize);
    splitter.setAttachedControlShouldResize(&control, false);
    EXPECT_TRUE(entry(control).shouldCenter);
    splitter.setAttachedControlShouldResize(&control, true);
    EXPECT_FALSE(entry(control).shouldCenter);
}

TEST_P(Attach, WarnsTheAuthorOnlyIfAsked) {
    auto& control = add("list", 700, 50);
    const std::string missing =
        "has not been attached.\n\nControl must be attached BEFORE calling "
        "this method.";
    const std::string nil = "is NIL.\n\nDon't go calling this method with nonexistent controls!";
    auto calls = [&](RectControl* c) {
        return std::vector<std::pair<std::string, std::function<void()>>>{
            {"unAttach", [=, this] { splitter.unAttach(c, false); }},
            {"setAttachedControlMinSizeVisible",
             [=, this] { splitter.setAttachedControlMinSizeVisible(c, 1); }},
            {"setAttachedControlShouldResize",
             [=, this] { splitter.setAttachedControlShouldResize(c, true); }},
            {"setAttachedControlShouldMove",
             [=, this] { splitter.setAttachedControlShouldMove(c, true); }},
            {"setAttachedControlShouldCenter",
             [=, this] { splitter.setAttachedControlShouldCenter(c, true); }},
            {"setAttachedControlNormallyVisible",
             [=, this] { splitter.setAttachedControlNormallyVisible(c, true); }},
        };
    };
    for (auto& [name, call] : calls(&control)) call();
    open();
    splitter.showWarningsDialogs = true;
    for (auto& [name, call] : calls(&control)) {
        platform.expectBox("The control 'list' passed to the SmartSplitter 'splitter' method '" +
                           name + "' " + missing);
        call();
    }
    for (auto& [name, call] : calls(nullptr)) {
        platform.expectBox("The control passed to the SmartSplitter 'splitter' method '" + name +
                           "' " + nil);
        call();
    }
    splitter.unAttach(&control, true);
    splitter.attach(&control);
    platform.expectBox(
        "The control 'list' is already attached to smartSplitter 'splitter'.   This attach request "
        "will be ignored.");
    splitter.attach(&control);
}

}  // namespace
}  // namespace bracken::test
