#include <QTabBar>

#include "framework/controls/group_box.h"
#include "framework/controls/page_panel.h"
#include "framework/controls/push_button.h"
#include "framework/controls/tab_panel.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

class Pages : public Window {
  public:
    TabPanel tabs{*this, "tabs"};
    PushButton first{*this, "first"};
    GroupBox box{*this, "box"};
    PushButton inBox{*this, "inBox"};
    PagePanel panel{*this, "panel"};
    PushButton onPage{*this, "onPage"};

  protected:
    void Layout() override { Width = Height = 300; }
    void CreateControls() override {
        for (Control* control : controls())
            dynamic_cast<RectControl&>(*control).place(10, 10, 200, 200);
        tabs.Captions = {"One", "Two"};
        first.Parent = &tabs;
        box.Parent = &tabs;
        inBox.Parent = &box;
        panel.Parent = &box;
        onPage.Parent = &panel;
        box.TabPanelIndex = 1;
        onPage.TabPanelIndex = 3;
        inBox.Default = true;
    }
};

class PageWidgets : public QtTest {
  protected:
    // The names of the controls on show, by their widgets.
    std::string shown() {
        showFrame(pages);
        std::string names;
        for (Control* control : pages.controls())
            if (widget(*control).isVisible()) names += control->name() + " ";
        return names;
    }
    void clickTab(int page) {
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(page).center());
    }

    Pages& pages = open<Pages>();
    QTabBar& bar = *widget(pages.tabs).findChild<QTabBar*>();
};

TEST_F(PageWidgets, ShowOnlyWhatLiesOnTheirPage) {
    EXPECT_EQ(shown(), "tabs first ");
    EXPECT_EQ(pages.defaultButton(), nullptr) << "Return presses nothing out of sight";
    clickTab(1);
    EXPECT_EQ(shown(), "tabs box inBox panel ");
    EXPECT_EQ(pages.defaultButton(), &pages.inBox);
    pages.panel.Value = 3;
    pages.inBox.Visible = false;
    EXPECT_EQ(shown(), "tabs box panel onPage ");
    pages.box.Visible = false;
    EXPECT_EQ(shown(), "tabs ") << "a container that is hidden hides what it holds";
    clickTab(0);
    pages.box.Visible = pages.inBox.Visible = true;
    EXPECT_EQ(shown(), "tabs first ");
    pages.tabs.Value = 1;
    EXPECT_EQ(shown(), "tabs box inBox panel onPage ");
    EXPECT_EQ(bar.currentIndex(), 1);
}

}  // namespace bracken::test
