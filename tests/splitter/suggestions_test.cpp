#include "framework/controls/buttons.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/listbox.h"
#include "framework/controls/panels.h"
#include "framework/controls/plain_controls.h"
#include "framework/controls/popup_menu.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

template <class T>
RectControl& make(Stage& stage) {
    return stage.add<T>("control", true, 0, 200);
}

template <bool multiLine, bool verticalBar, bool horizontalBar>
RectControl& field(Stage& stage) {
    auto& made = stage.add<EditField>("control", true, 0, 200);
    made.MultiLine = multiLine;
    made.ScrollBarVertical = verticalBar;
    made.ScrollBarHorizontal = horizontalBar;
    return made;
}

RectControl& barredList(Stage& stage) {
    auto& made = stage.add<Listbox>("control", true, 0, 200);
    made.ScrollbarHorizontal = true;
    return made;
}

RectControl& label(Stage& stage) {
    auto& made = stage.add<StaticText>("control", true, 0, 200);
    made.MultiLine = true;
    return made;
}

template <bool left, bool top, bool right, bool bottom>
RectControl& locked(Stage& stage) {
    auto& made = stage.add<PushButton>("control", true, 0, 200);
    made.LockLeft = left;
    made.LockTop = top;
    made.LockRight = right;
    made.LockBottom = bottom;
    return made;
}

template <int width, int height>
RectControl& shaped(Stage& stage) {
    auto& made = stage.add<SmartSplitter>("control", true, 0, 200);
    made.place(0, 0, width, height);
    return made;
}

struct Suggested {
    int minSize;
    int offset;
    bool resizes;
    bool operator==(const Suggested&) const = default;
};

struct Case {
    const char* name;
    RectControl& (*make)(Stage& stage);
    Suggested vertical;
    Suggested horizontal;
    bool holdsOthers;
};

TEST(Suggestions, FollowTheClassOfTheControl) {
    const Case cases[] = {
        {"list", make<Listbox>, {20, 86, true}, {20, 30, true}, true},
        {"list, horizontal bar", barredList, {20, 86, true}, {20, 66, true}, true},
        {"check box", make<CheckBox>, {18, 60, false}, {2, 30, false}, false},
        {"radio button", make<RadioButton>, {18, 60, false}, {2, 30, false}, false},
        {"field", field<false, false, true>, {20, 60, true}, {2, 30, false}, true},
        {"field, lines", field<true, true, false>, {20, 80, true}, {2, 30, true}, true},
        {"field, bar", field<true, false, true>, {20, 60, true}, {2, 46, true}, true},
        {"popup", make<PopupMenu>, {18, 40, true}, {2, 30, false}, false},
        {"label", make<StaticText>, {2, 40, false}, {2, 30, false}, false},
        {"label, lines", label, {2, 40, false}, {2, 30, true}, false},
        {"tab panel", make<TabPanel>, {28, 140, true}, {28, 140, true}, true},
        {"page panel", make<PagePanel>, {28, 100, true}, {28, 100, true}, true},
        {"group box", make<GroupBox>, {28, 100, true}, {28, 100, true}, true},
        {"canvas", make<Canvas>, {2, 30, true}, {2, 30, true}, true},
        {"rectangle", make<Rectangle>, {2, 30, true}, {2, 30, true}, true},
        {"separator", make<Separator>, {2, 30, true}, {2, 30, true}, false},
        {"placard", make<Placard>, {2, 30, true}, {2, 30, true}, false},
        {"image well", make<ImageWell>, {2, 30, true}, {2, 30, true}, false},
        {"line", make<Line>, {2, 30, false}, {2, 30, false}, false},
        {"button", make<PushButton>, {2, 30, false}, {2, 30, false}, false},
        {"left right", locked<true, false, true, false>, {2, 30, true}, {2, 30, false}, false},
        {"top bottom", locked<false, true, false, true>, {2, 30, false}, {2, 30, true}, false},
        {"left top", locked<true, true, false, false>, {2, 30, false}, {2, 30, false}, false},
        {"vertical splitter", shaped<5, 200>, {2, 30, false}, {2, 30, true}, true},
        {"horizontal splitter", shaped<200, 5>, {2, 30, true}, {2, 30, false}, true},
        {"square splitter", shaped<9, 9>, {2, 30, true}, {2, 30, false}, true},
    };
    for (const Case& c : cases) {
        FakePlatform platform;
        Stage& stage = Windows::get().instance<Stage>();
        const RectControl& control = c.make(stage);
        EXPECT_EQ(Probe::holdsOthers(control), c.holdsOthers) << c.name;
        for (bool vertical : {true, false}) {
            auto& splitter = stage.add<SmartSplitter>("splitter", vertical, 700, 10);
            splitter.Event_Open();
            EXPECT_EQ(
                (Suggested{Probe::minSize(splitter, control), Probe::offset(splitter, control),
                           Probe::resizes(splitter, control)}),
                vertical ? c.vertical : c.horizontal)
                << c.name << vertical;
        }
    }
}

}  // namespace
}  // namespace bracken::test
