#include "framework/controls/buttons.h"
#include "framework/controls/listbox.h"
#include "framework/controls/plain_controls.h"
#include "splitter/canvas_smart_splitter_debugger.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

class Lifecycle : public SplitterTest {};
INSTANTIATE_TEST_SUITE_P(Both, Lifecycle, testing::Bool(), orientationName);

TEST_P(Lifecycle, AnyOperationSetsItUpOnce) {
    using S = SmartSplitter;
    RectControl& pane = add<GroupBox>("pane", 300, 100);
    const std::pair<const char*, std::function<void(S & s)>> cases[] = {
        {"attachNearbyControls", [](S& s) { s.attachNearbyControls(); }},
        {"attach", [](S& s) { s.attach(nullptr); }},
        {"setMaxLimit", [](S& s) { s.setMaxLimit(500); }},
        {"setMinLimit", [](S& s) { s.setMinLimit(1); }},
        {"setMaxLimitOffset", [](S& s) { s.setMaxLimitOffset(1); }},
        {"setMinLimitOffset", [](S& s) { s.setMinLimitOffset(1); }},
        {"setMaxLimitOffset, control", [&](S& s) { s.setMaxLimitOffset(&pane); }},
        {"setMinLimitOffset, control", [&](S& s) { s.setMinLimitOffset(&pane); }},
        {"resetPosition", [](S& s) { s.resetPosition(); }},
        {"setPosition", [](S& s) { s.setPosition(400); }},
        {"moveDistance", [](S& s) { s.moveDistance(0, false); }},
        {"setMaxAttachedControl", [](S& s) { s.setMaxAttachedControl(nullptr, false); }},
        {"setMinAttachedControl", [](S& s) { s.setMinAttachedControl(nullptr, false); }},
        {"behave", [](S& s) { s.behave(); }},
        {"setProportion", [](S& s) { s.setProportion(0.5); }},
        {"proportion", [](S& s) { s.proportion(); }},
        {"position", [](S& s) { s.position(); }},
        {"setConceal", [](S& s) { s.setConceal(false); }},
        {"setHandleType", [](S& s) { s.setHandleType(1); }},
    };
    for (const auto& [name, operation] : cases) {
        SCOPED_TRACE(name);
        auto& made = add<SmartSplitter>("made", 400, 10);
        int opened = 0;
        made.Open = [&] {
            ++opened;
            made.attach(&pane);
        };
        operation(made);
        EXPECT_EQ(Probe::names(made), "pane ") << "only what the handler attached";
        operation(made);
        EXPECT_EQ(opened, 1);
    }
}

TEST_P(Lifecycle, TheAutomaticHandleReplacesTheAuthors) {
    struct Case {
        int thickness, length, frame;
        std::tuple<bool, bool, int> handle;  // dimple, large, count
    };
    const Case cases[] = {
        {13, 120, 0, {false, false, 3}}, {13, 121, 0, {false, true, 2}},
        {12, 400, 0, {false, false, 3}}, {10, 100, 0, {false, false, 3}},
        {9, 100, 0, {false, false, 2}},  {5, 100, 9, {true, false, 3}},
        {6, 100, 9, {true, true, 1}},    {6, 20, 9, {true, false, 3}},
    };
    for (const Case& c : cases) {
        stage.Frame = c.frame;
        auto& made = add<SmartSplitter>("made", 50, c.thickness);
        cross().setExtent(made, c.length);
        made.handleLarge = made.handleDimple = true;
        made.Event_Open();
        EXPECT_EQ(std::tuple(made.handleDimple, made.handleLarge, made.handleCount), c.handle)
            << c.thickness << " by " << c.length;
    }
}

TEST_P(Lifecycle, AnOverlayShowsItWhileDebugging) {
    open();
    auto& overlay = stage.add<CanvasSmartSplitterDebugger>("overlay", true, 0, 1);
    overlay.Event_Open();
    overlay.paint();
    for (const bool debug : {true, false}) {
        splitter.setDebug(debug);
        const uint32_t corner = overlay.paint().at(splitter.Left, splitter.Top);
        EXPECT_EQ(corner >> 24, debug ? 255U - 0x44 : 0U);
    }
}

TEST_P(Lifecycle, AConcealedOrDisabledOneIgnoresTheMouse) {
    const Cursor arrows = vertical() ? Cursor::splitterEastWest : Cursor::splitterNorthSouth;
    open();
    splitter.setConceal(true);
    EXPECT_EQ(splitter.MouseCursor, arrows) << "corrected when the mouse enters next";
    splitter.userEntered();
    EXPECT_EQ(splitter.MouseCursor, Cursor::standard);
    for (const bool concealed : {true, false}) {
        splitter.setConceal(concealed);
        splitter.Enabled = concealed;
        press();
        drag(-100);
        release();
        EXPECT_EQ(at(splitter), 400) << concealed;
    }
}

TEST_P(Lifecycle, TheMouseDragsItWithOrWithoutTheControls) {
    auto& min = add<Listbox>("min", 0, 400);
    add<Listbox>("max", 410, 150);
    auto& apart = add("apart", 700, 10);
    std::string events;
    open();
    splitter.MouseDown = [&](int, int) { events += "down "; };
    splitter.MouseDrag = [&](int, int) { events += "drag "; };
    splitter.MouseUp = [&](int, int) { events += "up "; };
    splitter.Moved = [&](int distance) { events += std::to_string(distance) + " "; };
    const auto state = [&] {
        return std::exchange(events, "") + "at " + std::to_string(at(splitter)) + "," +
               std::to_string(extent(min));
    };
    press();
    drag(-100);
    drag(-50);
    release();
    drag(-50);
    EXPECT_EQ(state(), "down -100 drag -50 drag up at 250,250");
    splitter.DisableLiveDrag = true;
    press();
    drag(50);
    drag(20);
    EXPECT_EQ(state(), "down drag drag at 320,250");
    apart.takeDirty();
    release();
    EXPECT_TRUE(apart.takeDirty()) << "the window is drawn where the ghost was";
    EXPECT_EQ(state(), "70 up at 320,320");
    min.Visible = false;
    splitter.behave();
    EXPECT_EQ(state(), "at 320,320") << "behaving raises nothing then";
    EXPECT_TRUE(min.Visible) << "but adjusts the controls";
}

}  // namespace
}  // namespace bracken::test
