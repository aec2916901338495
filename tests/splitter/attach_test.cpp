#include "framework/controls/buttons.h"
#include "framework/controls/listbox.h"
#include "framework/controls/panels.h"
#include "framework/controls/plain_controls.h"
#include "framework/exception.h"
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
    splitter.TabPanelIndex = 1;
    for (RectControl* panel : {tabs, pages})
        for (RectControl* parent : {tabs, pages})
            for (const int page : {1, 2}) {
                splitter.Parent = panel;
                control.Parent = parent;
                control.TabPanelIndex = page;
                splitter.unAttachAllControls();
                splitter.attachNearbyControls();
                EXPECT_EQ(Probe::names(splitter), panel == parent && page == 1 ? "control " : "");
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
}

TEST_P(Attach, WarnsTheAuthorIfAsked) {
    auto& control = add("list", 700, 50);
    splitter.attach(&control);
    splitter.showWarningsDialogs = true;
    platform.expectBox(
        "The control 'list' is already attached to smartSplitter 'splitter'.   This attach request "
        "will be ignored.");
    splitter.attach(&control);
    splitter.unAttach(&control, false);
    const std::string start = "passed to the SmartSplitter 'splitter' method '";
    platform.expectBox("The control 'list' " + start +
                       "setAttachedControlShouldMove' has not been attached.\n\nControl must be "
                       "attached BEFORE calling this method.");
    splitter.setAttachedControlShouldMove(&control, true);
    platform.expectBox("The control " + start +
                       "setAttachedControlMinSizeVisible' is NIL.\n\nDon't go calling this method "
                       "with nonexistent controls!");
    splitter.setAttachedControlMinSizeVisible(nullptr, 1);
}

}  // namespace bracken::test
