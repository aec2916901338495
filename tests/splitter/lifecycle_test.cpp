#include "splitter/canvas_smart_splitter_debugger.h"
#include "tests/splitter/stage.h"

namespace bracken::test {

class Lifecycle : public SplitterTest {};
INSTANTIATE_TEST_SUITE_P(Both, Lifecycle, testing::Bool(), orientationName);

TEST_P(Lifecycle, AnyOperationSetsItUpOnce) {
    using S = SmartSplitter;
    RectControl& pane = add<GroupBox>("pane", 300, 100);
    const std::pair<const char*, std::function<void(S & s)>> cases[] = {
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
        {"setDebug", [](S& s) { s.setDebug(false); }},
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

// Where along the splitter's axis the overlay's colour or transparency changes: g is the range, b a
// zone, r a control, a capital the ground of a label, ? its text.
std::string line(const Pixels& shown, bool vertical, int across) {
    const std::map<uint32_t, char> letters = {{0xbb009600, 'g'}, {0xdd009600, 'G'},
                                              {0xbb000096, 'b'}, {0xdd000096, 'B'},
                                              {0xbbc80000, 'r'}, {0, '.'}};
    std::string changes = ".";
    for (int along = 0; along < 600; ++along) {
        const auto known =
            letters.find(vertical ? shown.at(along, across) : shown.at(across, along));
        const char letter = known == letters.end() ? '?' : known->second;
        if (letter != changes.back()) changes += std::to_string(along) + letter;
    }
    return changes;
}

TEST_P(Lifecycle, AnOverlayShowsTheRangeItsZonesAndTheControls) {
    add<GroupBox>("min", 100, 300);
    auto& max = add<GroupBox>("max", 410, 140);
    open();
    splitter.setMaxLimitOffset(50);
    auto& overlay = stage.add<CanvasSmartSplitterDebugger>("overlay", true, 0, 1);
    overlay.Event_Open();
    EXPECT_FALSE(overlay.TakesMouse);
    overlay.paint();
    splitter.setDebug(true);
    max.Visible = false;
    splitter.setAttachedControlNormallyVisible(&max, false);
    splitter.behave();
    const auto lineAt = [&](int across) { return line(overlay.paint(), vertical(), across); };
    for (const auto& [across, ifVertical, ifHorizontal] :
         {std::tuple(100, ".90G163g550.", ".90G101g550."),
          {189,
           ".90g91.100r101.190B284.297g299.399r400g401.409g410r411.472r473.486r487.500b501."
           "549g550.",
           ".90g91.100r101.190B192?199B201.289g292.399r400g401.409g410r411.472r473.486r487.491B502."
           "549g550."},
          {289, ".90g91.100r101.190b191.399r400g401.409g410r411.416r417.468G550.",
           ".90g91.100r101.190b191.399r400g401.409g410r411.416r417.500b501.539G541?542G543?"
           "548G550."}})
        EXPECT_EQ(lineAt(across), vertical() ? ifVertical : ifHorizontal) << across;
    press();
    drag(20);
    EXPECT_TRUE(lineAt(270).starts_with(".90g91.100r101.190b191.419r420g421.429g430r431.447r448."));
    release();
    resizeWindow(windowSize() + 20);
    EXPECT_EQ(extent(overlay), windowSize());
    EXPECT_NE(lineAt(270), ".") << "a new size shows the old drawing once more";
    EXPECT_EQ(lineAt(270), ".");
    splitter.setDebug(true);
    EXPECT_NE(lineAt(270), ".");
    splitter.setDebug(false);
    EXPECT_EQ(lineAt(270), ".");
    splitter.setDebug(true);
    bool closed = false;
    splitter.Close = [&] { closed = true; };
    splitter.Event_Close();
    press();
    EXPECT_THROW(drag(-20), NilObjectException) << "no overlay is left to clear";
    EXPECT_TRUE(closed);
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
    splitter.setConceal(true);
    splitter.userEntered();
    EXPECT_EQ(splitter.MouseCursor, Cursor::standard);
    press();
    drag(-100);
    release();
    EXPECT_EQ(state(), "at 320,320") << "concealed it takes no mouse";
}

}  // namespace bracken::test
