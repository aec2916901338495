#include "framework/controls/buttons.h"
#include "framework/controls/listbox.h"
#include "framework/controls/plain_controls.h"
#include "framework/exception.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

using Probe = SmartSplitterProbe;

class Lifecycle : public SplitterTest {};
INSTANTIATE_TEST_SUITE_P(Both, Lifecycle, testing::Bool(), orientationName);

struct Swapped : SmartSplitter {
    Swapped(Window& window, std::string name) : SmartSplitter(window, std::move(name)) {
        SwapOrientation = true;
    }
};

TEST_P(Lifecycle, TheShapeGivesTheOrientation) {
    struct Case {
        int width, height;
        bool vertical;
    };
    for (const Case& c : {Case{10, 11, true}, Case{11, 10, false}, Case{10, 10, false}}) {
        for (bool swapped : {false, true}) {
            SmartSplitter& made = swapped ? stage.add<Swapped>("made", true, {0, 0})
                                          : stage.add<SmartSplitter>("made", true, {0, 0});
            made.place(50, 60, c.width, c.height);
            made.Event_Open();
            EXPECT_EQ(Probe::vertical(made), c.vertical != swapped) << c.width << " " << c.height;
            EXPECT_EQ(made.position(), c.vertical != swapped ? 50 : 60);
        }
    }
}

TEST_P(Lifecycle, SetUpRunsOnceAndBeforeTheFirstCall) {
    int opened = 0;
    auto& pane = add<GroupBox>("pane", 300, 100);
    splitter.Open = [&] {
        ++opened;
        EXPECT_EQ(splitter.MinLimit, 9999) << "the limits are not derived yet";
        EXPECT_FALSE(splitter.doNotAttachEmbeddedControls);
        EXPECT_FALSE(splitter.showWarningsDialogs);
        splitter.showWarningsDialogs = true;
        splitter.attach(&pane);
    };
    splitter.showWarningsDialogs = true;
    splitter.doNotAttachEmbeddedControls = true;
    add<GroupBox>("neighbour", 410, 100);
    splitter.setPosition(500);
    splitter.Event_Open();
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(Probe::names(splitter), std::vector<std::string>{"pane"})
        << "only what the handler attached";
    EXPECT_EQ(at(splitter), 500);
    EXPECT_TRUE(splitter.showWarningsDialogs);
    EXPECT_FALSE(splitter.UseFocusRing);
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
        made.handleLarge = made.handleDimple = true;
        made.Event_Open();
        SCOPED_TRACE(testing::Message() << c.thickness << " by " << c.length);
        EXPECT_EQ(made.handleDimple, c.dimple);
        EXPECT_EQ(made.handleLarge, c.large);
        EXPECT_EQ(made.handleCount, c.count);
    }
}

TEST_P(Lifecycle, TheCursorShowsTheDirectionUnlessItCannotBeDragged) {
    Cursor arrows = vertical() ? Cursor::splitterEastWest : Cursor::splitterNorthSouth;
    open();
    EXPECT_EQ(splitter.MouseCursor, arrows);
    splitter.setConceal(true);
    EXPECT_EQ(splitter.MouseCursor, arrows) << "corrected when the mouse enters next";
    int entered = 0;
    splitter.MouseEnter = [&] { ++entered; };
    splitter.userEntered();
    EXPECT_EQ(splitter.MouseCursor, Cursor::standard);
    splitter.setConceal(false);
    splitter.Enabled = false;
    splitter.userEntered();
    EXPECT_EQ(splitter.MouseCursor, Cursor::standard);
    EXPECT_EQ(entered, 2);
}

TEST_P(Lifecycle, TheMouseDragsIt) {
    auto& min = add<Listbox>("min", 0, 400);
    auto& max = add<Listbox>("max", 410, 150);
    open();
    std::vector<std::string> events;
    splitter.MouseDown = [&](int, int) { events.push_back("down"); };
    splitter.MouseDrag = [&](int, int) { events.push_back("drag"); };
    splitter.MouseUp = [&](int, int) { events.push_back("up"); };
    splitter.Moved = [&](int distance) { events.push_back(std::to_string(distance)); };
    press(5);
    drag(-100);
    drag(-50);
    EXPECT_EQ(at(splitter), 250);
    EXPECT_EQ(extent(min), 250);
    EXPECT_EQ(at(max), 260);
    EXPECT_EQ(extent(max), 300);
    release();
    drag(-50);
    EXPECT_EQ(events, (std::vector<std::string>{"down", "-100", "drag", "-50", "drag", "up"}));
}

TEST_P(Lifecycle, AConcealedOrDisabledOneIgnoresTheMouse) {
    open();
    int events = 0;
    splitter.MouseDown = splitter.MouseUp = [&](int, int) { ++events; };
    splitter.setConceal(true);
    EXPECT_FALSE(splitter.Event_MouseDown(5, 5));
    splitter.setConceal(false);
    splitter.Enabled = false;
    press(5);
    drag(-100);
    release();
    EXPECT_EQ(events, 0);
    EXPECT_EQ(at(splitter), 400);
}

TEST_P(Lifecycle, WithoutLiveDragTheControlsFollowAtTheEnd) {
    splitter.DisableLiveDrag = true;
    auto& min = add<Listbox>("min", 0, 400);
    open();
    std::vector<int> moves;
    splitter.Moved = [&](int distance) { moves.push_back(distance); };
    press(5);
    drag(-100);
    drag(20);
    EXPECT_EQ(at(splitter), 320);
    EXPECT_EQ(extent(min), 400);
    release();
    EXPECT_EQ(extent(min), 320);
    EXPECT_EQ(moves, std::vector<int>{-80});
    splitter.behave();
    EXPECT_EQ(moves.size(), 1U) << "behaving raises nothing";
}

TEST_P(Lifecycle, AClosedOneStillWorksAndCanAttachAgain) {
    auto& pane = add<GroupBox>("pane", 300, 100);
    open();
    int closed = 0;
    splitter.Close = [&] { ++closed; };
    auto kept = stage.shared_from_this();
    stage.Close();
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(Probe::names(splitter), std::vector<std::string>{});
    splitter.behave();
    splitter.attach(&pane);
    splitter.setPosition(450);
    EXPECT_EQ(at(splitter), 450);
}

}  // namespace
}  // namespace bracken::test
