#include <functional>

#include "framework/controls/check_box.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/group_box.h"
#include "framework/controls/image_well.h"
#include "framework/controls/line.h"
#include "framework/controls/listbox.h"
#include "framework/controls/page_panel.h"
#include "framework/controls/placard.h"
#include "framework/controls/popup_menu.h"
#include "framework/controls/push_button.h"
#include "framework/controls/radio_button.h"
#include "framework/controls/rectangle.h"
#include "framework/controls/separator.h"
#include "framework/controls/static_text.h"
#include "framework/controls/tab_panel.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

using Probe = SmartSplitterProbe;
using Make = std::function<RectControl&(Stage&)>;

template <class T>
Make plain(std::function<void(T&)> change = nullptr) {
    return [change](Stage& stage) -> RectControl& {
        T& control = stage.add<T>("control", true, {0, 200});
        if (change) change(control);
        return control;
    };
}

Make field(bool lines, bool upBar, bool lyingBar) {
    return plain<EditField>([=](EditField& field) {
        field.MultiLine = lines;
        field.ScrollBarVertical = upBar;
        field.ScrollBarHorizontal = lyingBar;
    });
}

Make locked(bool left, bool top, bool right, bool bottom) {
    return plain<PushButton>([=](PushButton& button) {
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
    Suggested upright;
    Suggested lying;
    bool holdsOthers;
};

TEST(Suggestions, FollowTheKindOfControl) {
    auto list = [](bool bar) {
        return plain<Listbox>([=](Listbox& made) { made.ScrollbarHorizontal = bar; });
    };
    auto label = [](bool lines) {
        return plain<StaticText>([=](StaticText& made) { made.MultiLine = lines; });
    };
    auto shaped = [](int width, int height) {
        return plain<SmartSplitter>([=](SmartSplitter& made) { made.place(0, 0, width, height); });
    };
    const Case cases[] = {
        {"list", list(false), {20, 86, true}, {20, 30, true}, true},
        {"list, lying bar", list(true), {20, 86, true}, {20, 66, true}, true},
        {"check box", plain<CheckBox>(), {18, 60, false}, {2, 30, false}, false},
        {"radio button", plain<RadioButton>(), {18, 60, false}, {2, 30, false}, false},
        {"field", field(false, false, true), {20, 60, true}, {2, 30, false}, true},
        {"field, lines", field(true, true, false), {20, 80, true}, {2, 30, true}, true},
        {"field, lying bar", field(true, false, true), {20, 60, true}, {2, 46, true}, true},
        {"popup", plain<PopupMenu>(), {18, 40, true}, {2, 30, false}, false},
        {"label", label(false), {2, 40, false}, {2, 30, false}, false},
        {"label, lines", label(true), {2, 40, false}, {2, 30, true}, false},
        {"tab panel", plain<TabPanel>(), {28, 140, true}, {28, 140, true}, true},
        {"page panel", plain<PagePanel>(), {28, 100, true}, {28, 100, true}, true},
        {"group box", plain<GroupBox>(), {28, 100, true}, {28, 100, true}, true},
        {"canvas", plain<Canvas>(), {2, 30, true}, {2, 30, true}, true},
        {"rectangle", plain<Rectangle>(), {2, 30, true}, {2, 30, true}, true},
        {"separator", plain<Separator>(), {2, 30, true}, {2, 30, true}, false},
        {"placard", plain<Placard>(), {2, 30, true}, {2, 30, true}, false},
        {"image well", plain<ImageWell>(), {2, 30, true}, {2, 30, true}, false},
        {"line", plain<Line>(), {2, 30, false}, {2, 30, false}, false},
        {"button", plain<PushButton>(), {2, 30, false}, {2, 30, false}, false},
        {"button, left right", locked(1, 0, 1, 0), {2, 30, true}, {2, 30, false}, false},
        {"button, top bottom", locked(0, 1, 0, 1), {2, 30, false}, {2, 30, true}, false},
        {"button, left top", locked(1, 1, 0, 0), {2, 30, false}, {2, 30, false}, false},
        {"upright splitter", shaped(5, 200), {2, 30, false}, {2, 30, true}, true},
        {"lying splitter", shaped(200, 5), {2, 30, true}, {2, 30, false}, true},
        {"square splitter", shaped(9, 9), {2, 30, true}, {2, 30, false}, true},
    };
    for (const Case& c : cases) {
        FakePlatform platform;
        Stage& stage = Stage::make();
        const RectControl& control = c.make(stage);
        for (bool vertical : {true, false}) {
            SCOPED_TRACE(std::string(c.name) + (vertical ? ", upright" : ", lying"));
            auto& splitter = stage.add<SmartSplitter>("splitter", vertical, {700, 10});
            splitter.Event_Open();
            const Suggested& expected = vertical ? c.upright : c.lying;
            EXPECT_EQ(Probe::minSize(splitter, control), expected.minSize);
            EXPECT_EQ(Probe::offset(splitter, control), expected.offset);
            EXPECT_EQ(Probe::resizes(splitter, control), expected.resizes);
        }
        EXPECT_EQ(Probe::holdsOthers(control), c.holdsOthers) << c.name;
    }
}

}  // namespace
}  // namespace bracken::test
