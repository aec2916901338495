#include "framework/controls/buttons.h"
#include "framework/controls/listbox.h"
#include "framework/controls/plain_controls.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

class Lifecycle : public SplitterTest {};
INSTANTIATE_TEST_SUITE_P(Both, Lifecycle, testing::Bool(), orientationName);

struct Swapped : SmartSplitter {
    Swapped(Window& window, std::string name) : SmartSplitter(window, std::move(name)) {
        SwapOrientation = true;
    }
};

TEST_P(Lifecycle, TheShapeGivesTheOrientation) {
    for (int width : {9, 10, 11}) {
        for (bool swapped : {false, true}) {
            SmartSplitter& made =
                swapped ? add<Swapped>("made", 0, 0) : add<SmartSplitter>("made", 0, 0);
            made.place(50, 60, width, 10);
            made.Event_Open();
            EXPECT_EQ(Probe::vertical(made), (width < 10) != swapped) << width;
            EXPECT_EQ(made.position(), Probe::vertical(made) ? 50 : 60);
        }
    }
}

TEST_P(Lifecycle, AnyOperationSetsItUpOnceAndSomeDrawTheOverlay) {
    using S = SmartSplitter;
    RectControl& pane = add<GroupBox>("pane", 300, 100);
    auto& canvas = stage.add<CanvasSmartSplitterDebugger>("overlay", true, 0, 1);
    canvas.Event_Open();
    struct Case {
        const char* name;
        std::function<void(S& s)> operation;
        bool draws = true;
    };
    const Case cases[] = {
        {"attachNearbyControls", [](S& s) { s.attachNearbyControls(); }, false},
        {"attach", [](S& s) { s.attach(nullptr); }, false},
        {"setMaxLimit", [](S& s) { s.setMaxLimit(500); }},
        {"setMinLimit", [](S& s) { s.setMinLimit(1); }},
        {"setMaxLimitOffset", [](S& s) { s.setMaxLimitOffset(1); }},
        {"setMinLimitOffset", [](S& s) { s.setMinLimitOffset(1); }},
        {"setMaxLimitOffset, control", [&](S& s) { s.setMaxLimitOffset(&pane); }},
        {"setMinLimitOffset, control", [&](S& s) { s.setMinLimitOffset(&pane); }},
        {"resetPosition", [](S& s) { s.resetPosition(); }},
        {"setPosition", [](S& s) { s.setPosition(400); }},
        {"moveDistance", [](S& s) { s.moveDistance(0, false); }, false},
        {"setMaxAttachedControl", [](S& s) { s.setMaxAttachedControl(nullptr, false); }},
        {"setMinAttachedControl", [](S& s) { s.setMinAttachedControl(nullptr, false); }},
        {"behave", [](S& s) { s.behave(); }},
        {"setProportion", [](S& s) { s.setProportion(0.5); }},
        {"proportion", [](S& s) { s.proportion(); }, false},
        {"position", [](S& s) { s.position(); }, false},
        {"setDebug", [](S& s) { s.setDebug(false); }},
        {"setConceal", [](S& s) { s.setConceal(false); }, false},
        {"setHandleType", [](S& s) { s.setHandleType(1); }, false},
        {"Event_Open", [](S& s) { s.Event_Open(); }, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        auto& made = add<SmartSplitter>("made", 400, 10);
        made.MinLimitOffset = -7;
        made.showWarningsDialogs = made.doNotAttachEmbeddedControls = true;
        int opened = 0;
        made.Open = [&] {
            ++opened;
            EXPECT_EQ(made.MinLimit, 9999) << "the limits are not derived yet";
            EXPECT_EQ(made.MinLimitOffset, 0);
            EXPECT_FALSE(made.showWarningsDialogs || made.doNotAttachEmbeddedControls ||
                         made.UseFocusRing);
            made.attach(&pane);
        };
        c.operation(made);
        EXPECT_EQ(opened, 1);
        EXPECT_EQ(Probe::names(made), "pane ") << "only what the handler attached";
        made.setDebug(true);
        canvas.clearP();
        canvas.takeDirty();
        c.operation(made);
        EXPECT_EQ(canvas.takeDirty(), c.draws);
        const Pixels& drawing = Probe::picture(canvas)->pixels();
        constexpr uint32_t white = 0xffffffff;
        EXPECT_EQ(drawing.at(made.Left + made.Width - 1, made.Top + made.Height - 1) != white,
                  c.draws);
        EXPECT_EQ(opened, 1);
        made.Event_Close();
        place(made, 700);
    }
}

TEST_P(Lifecycle, TheAutomaticHandleReplacesTheAuthors) {
    struct Case {
        int thickness, length, frame;
        bool dimple, large;
        int count;
    };
    const Case cases[] = {
        {13, 120, 0, false, false, 3}, {13, 121, 0, false, true, 2}, {12, 400, 0, false, false, 3},
        {10, 100, 0, false, false, 3}, {9, 100, 0, false, false, 2}, {5, 100, 9, true, false, 3},
        {6, 100, 9, true, true, 1},    {6, 20, 9, true, false, 3},   {30, 31, 9, true, true, 1},
    };
    for (const Case& c : cases) {
        stage.Frame = c.frame;
        auto& made = add<SmartSplitter>("made", 50, c.thickness);
        cross().setExtent(made, c.length);
        made.handleLarge = !c.large;
        made.handleDimple = !c.dimple;
        made.Event_Open();
        SCOPED_TRACE(testing::Message() << c.thickness << " by " << c.length);
        EXPECT_EQ(made.handleDimple, c.dimple);
        EXPECT_EQ(made.handleLarge, c.large);
        EXPECT_EQ(made.handleCount, c.count);
        made.takeDirty();
        made.setHandleType(c.count);
        EXPECT_TRUE(made.takeDirty()) << "it is painted again";
    }
}

TEST_P(Lifecycle, AConcealedOrDisabledOneIgnoresTheMouse) {
    Cursor arrows = vertical() ? Cursor::splitterEastWest : Cursor::splitterNorthSouth;
    open();
    EXPECT_EQ(splitter.MouseCursor, arrows);
    int events = 0;
    splitter.MouseDown = splitter.MouseUp = [&](int, int) { ++events; };
    splitter.MouseEnter = [&] { ++events; };
    splitter.takeDirty();
    splitter.setConceal(true);
    EXPECT_TRUE(splitter.takeDirty());
    EXPECT_EQ(splitter.MouseCursor, arrows) << "corrected when the mouse enters next";
    EXPECT_FALSE(splitter.Event_MouseDown(5, 5));
    splitter.userEntered();
    EXPECT_EQ(splitter.MouseCursor, Cursor::standard);
    splitter.setConceal(false);
    splitter.Enabled = false;
    press();
    drag(-100);
    release();
    EXPECT_EQ(at(splitter), 400);
    EXPECT_EQ(events, 1);
}

TEST_P(Lifecycle, TheMouseDragsItWithOrWithoutTheControls) {
    auto& min = add<Listbox>("min", 0, 400);
    add<Listbox>("max", 410, 150);
    auto& apart = add("apart", 700, 10);
    std::string events;
    open();
    splitter.MouseDown = [&](int x, int) { events += "down" + std::to_string(x) + " "; };
    splitter.MouseDrag = [&](int x, int y) { events += "drag" + std::to_string(x + y) + " "; };
    splitter.MouseUp = [&](int, int) { events += "up "; };
    splitter.Moved = [&](int distance) { events += std::to_string(distance) + " "; };
    const auto state = [&] {
        return std::exchange(events, "") + "at " + std::to_string(at(splitter)) + "," +
               std::to_string(extent(min));
    };
    press();
    drag(-100);
    drag(-50);
    EXPECT_EQ(state(), "down5 -100 drag-92 -50 drag-42 at 250,250");
    release();
    drag(-50);
    EXPECT_EQ(state(), "up at 250,250");
    splitter.DisableLiveDrag = true;
    press();
    drag(50);
    drag(20);
    EXPECT_EQ(state(), "down5 drag58 drag28 at 320,250");
    apart.takeDirty();
    release();
    EXPECT_TRUE(apart.takeDirty()) << "the window is drawn where the ghost was";
    EXPECT_EQ(state(), "70 up at 320,320");
    min.Visible = false;
    splitter.behave();
    EXPECT_EQ(state(), "at 320,320") << "behaving raises nothing then";
    EXPECT_TRUE(min.Visible) << "but adjusts the controls";
}

TEST_P(Lifecycle, AClosedOneStillWorksAndCanAttachAgain) {
    auto& pane = add<GroupBox>("pane", 300, 100);
    open();
    int closed = 0;
    splitter.Close = [&] { ++closed; };
    auto kept = stage.shared_from_this();
    stage.Close();
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(Probe::names(splitter), "");
    splitter.behave();
    splitter.attach(&pane);
    splitter.setPosition(450);
    EXPECT_EQ(at(splitter), 450);
}

}  // namespace
}  // namespace bracken::test
