#include "tests/splitter/stage.h"

namespace bracken::test {

class Suggestions : public SplitterTest {
  protected:
    template <class T>
    T& make(int width = 200, int height = 200) {
        T& made = add<T>("control", 0, 0);
        made.place(0, 0, width, height);
        return made;
    }
    EditField& field(bool multiLine, bool verticalBar, bool horizontalBar) {
        auto& made = make<EditField>();
        made.MultiLine = multiLine;
        made.ScrollBarVertical = verticalBar;
        made.ScrollBarHorizontal = horizontalBar;
        return made;
    }
    PushButton& locked(bool sideways) {
        auto& made = make<PushButton>();
        made.LockLeft = made.LockRight = sideways;
        made.LockTop = made.LockBottom = !sideways;
        return made;
    }
};
INSTANTIATE_TEST_SUITE_P(Both, Suggestions, testing::Bool(), orientationName);

TEST_P(Suggestions, FollowTheClassOfTheControl) {
    open();
    auto& barredList = make<Listbox>();
    barredList.ScrollbarHorizontal = true;
    auto& label = make<StaticText>();
    label.MultiLine = true;
    struct Case {
        const char* name;
        const RectControl& control;
        const char *vertical, *horizontal;
        bool holdsOthers;
    };
    const Case cases[] = {
        {"list", make<Listbox>(), "20 86 resizes", "20 30 resizes", true},
        {"list, horizontal bar", barredList, "20 86 resizes", "20 66 resizes", true},
        {"check box", make<CheckBox>(), "18 60", "2 30", false},
        {"field", field(false, false, true), "20 60 resizes", "2 30", true},
        {"field, lines", field(true, true, false), "20 80 resizes", "2 30 resizes", true},
        {"field, bar", field(true, false, true), "20 60 resizes", "2 46 resizes", true},
        {"popup", make<PopupMenu>(), "18 40 resizes", "2 30", false},
        {"label", make<StaticText>(), "2 40", "2 30", false},
        {"label, lines", label, "2 40", "2 30 resizes", false},
        {"tab panel", make<TabPanel>(), "28 140 resizes", "28 140 resizes", true},
        {"page panel", make<PagePanel>(), "28 100 resizes", "28 100 resizes", true},
        {"group box", make<GroupBox>(), "28 100 resizes", "28 100 resizes", true},
        {"canvas", make<Canvas>(), "2 30 resizes", "2 30 resizes", true},
        {"separator", make<Separator>(), "2 30 resizes", "2 30 resizes", false},
        {"line", make<Line>(), "2 30", "2 30", false},
        {"left right", locked(true), "2 30 resizes", "2 30", false},
        {"top bottom", locked(false), "2 30", "2 30 resizes", false},
        {"button", make<PushButton>(), "2 30", "2 30", false},
        {"vertical splitter", make<SmartSplitter>(5), "2 30", "2 30 resizes", true},
        {"horizontal splitter", make<SmartSplitter>(201), "2 30 resizes", "2 30", true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Probe::holdsOthers(c.control), c.holdsOthers) << c.name;
        EXPECT_EQ(Probe::suggested(splitter, c.control), vertical() ? c.vertical : c.horizontal)
            << c.name;
    }
}

}  // namespace bracken::test
