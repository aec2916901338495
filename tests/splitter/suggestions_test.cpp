#include <functional>

#include "framework/controls/buttons.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/listbox.h"
#include "framework/controls/panels.h"
#include "framework/controls/plain_controls.h"
#include "framework/controls/popup_menu.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

using Probe = SmartSplitterProbe;
using Make = std::function<RectControl&(Stage&)>;

template <class T>
Make create(std::function<void(T&)> change = nullptr) {
    return [change](Stage& stage) -> RectControl& {
        T& control = stage.add<T>("control", true, {0, 200});
        if (change) change(control);
        return control;
    };
}

Make field(bool multiLine, bool verticalBar, bool horizontalBar) {
    return create<EditField>([=](EditField& field) {
        field.MultiLine = multiLine;
        field.ScrollBarVertical = verticalBar;
        field.ScrollBarHorizontal = horizontalBar;
    });
}

Make locked(bool left, bool top, bool right, bool bottom) {
    return create<PushButton>([=](PushButton& button) {
        button.LockLeft = left;
        button.LockTop = top;
        button.LockRight = right;
        button.LockBottom = bottom;
    });
}

struct Suggested {
    int minSize;
    int offset;
    bool resizes;
};

struct Case {
    const char* name;
    Make make;
    Suggested vertical;
    Suggested horizontal;
    bool holdsOthers;
};

TEST(Suggestions, FollowTheClassOfTheControl) {
    auto list = [](bool bar) {
        return create<Listbox>([=](Listbox& made) { made.ScrollbarHorizontal = bar; });
    };
    auto label = [](bool multiLine) {
        return create<StaticText>([=](StaticText& made) { made.MultiLine = multiLine; });
    };
    auto shaped = [](int width, int height) {
        return create<SmartSplitter>([=](SmartSplitter& made) { made.place(0, 0, width, height); });
    };
    const Case cases[] = {
        {"list", list(false), {20, 86, true}, {20, 30, true}, true},
        {"list, horizontal bar", list(true), {20, 86, true}, {20, 66, true}, true},
        {"check box", create<CheckBox>(), {18, 60, false}, {2, 30, false}, false},
        {"radio button", create<RadioButton>(), {18, 60, false}, {2, 30, false}, false},
        {"field", field(false, false, true), {20, 60, true}, {2, 30, false}, true},
        {"field, lines", field(true, true, false), {20, 80, true}, {2, 30, true}, true},
        {"field, horizontal bar", field(true, false, true), {20, 60, true}, {2, 46, true}, true},
        {"popup", create<PopupMenu>(), {18, 40, true}, {2, 30, false}, false},
        {"label", label(false), {2, 40, false}, {2, 30, false}, false},
        {"label, lines", label(true), {2, 40, false}, {2, 30, true}, false},
        {"tab panel", create<TabPanel>(), {28, 140, true}, {28, 140, true}, true},
        {"page panel", create<PagePanel>(), {28, 100, true}, {28, 100, true}, true},
        {"group box", create<GroupBox>(), {28, 100, true}, {28, 100, true}, true},
        {"canvas", create<Canvas>(), {2, 30, true}, {2, 30, true}, true},
        {"rectangle", create<Rectangle>(), {2, 30, true}, {2, 30, true}, true},
        {"separator", create<Separator>(), {2, 30, true}, {2, 30, true}, false},
        {"placard", create<Placard>(), {2, 30, true}, {2, 30, true}, false},
        {"image well", create<ImageWell>(), {2, 30, true}, {2, 30, true}, false},
        {"line", create<Line>(), {2, 30, false}, {2, 30, false}, false},
        {"button", create<PushButton>(), {2, 30, false}, {2, 30, false}, false},
        {"button, left right", locked(1, 0, 1, 0), {2, 30, true}, {2, 30, false}, false},
        {"button, top bottom", locked(0, 1, 0, 1), {2, 30, false}, {2, 30, true}, false},
        {"button, left top", locked(1, 1, 0, 0), {2, 30, false}, {2, 30, false}, false},
        {"vertical splitter", shaped(5, 200), {2, 30, false}, {2, 30, true}, true},
        {"horizontal splitter", shaped(200, 5), {2, 30, true}, {2, 30, false}, true},
        {"square splitter", shaped(9, 9), {2, 30, true}, {2, 30, false}, true},
    };
    for (const Case& c : cases) {
        FakePlatform platform;
        Stage& stage = Stage::make();
        const RectControl& control = c.make(stage);
        for (bool vertical : {true, false}) {
            SCOPED_TRACE(std::string(c.name) + (vertical ? ", vertical" : ", horizontal"));
            auto& splitter = stage.add<SmartSplitter>("splitter", vertical, {700, 10});
            splitter.Event_Open();
            const Suggested& expected = vertical ? c.vertical : c.horizontal;
            EXPECT_EQ(Probe::minSize(splitter, control), expected.minSize);
            EXPECT_EQ(Probe::offset(splitter, control), expected.offset);
            EXPECT_EQ(Probe::resizes(splitter, control), expected.resizes);
        }
        EXPECT_EQ(Probe::holdsOthers(control), c.holdsOthers) << c.name;
    }
}

}  // namespace
}  // namespace bracken::test
