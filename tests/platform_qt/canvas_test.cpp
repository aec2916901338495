#include <QAccessible>

#include "splitter/smart_splitter.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

class Panes : public Window {
  public:
    Canvas min{*this, "min"};
    Canvas max{*this, "max"};
    SmartSplitter divider{*this, "divider"};

  protected:
    void Layout() override {
        Width = 500;
        Height = 400;
    }
    void CreateControls() override {
        min.place(0, 10, 200, 200);
        divider.place(200, 10, 13, 200);
        max.place(213, 10, 200, 200);
    }
};

class Divider : public QtTest {
  protected:
    Panes& panes = open<Panes>();
    QWidget& shown = widget(panes.divider);
};

TEST_F(Divider, ShowsItsHandleAndItsPointer) {
    panes.divider.setHandleType(4);
    showFrame(panes);
    const QImage seen = shown.grab().toImage();
    EXPECT_NE(seen.pixel(seen.rect().center()), seen.pixel(0, 0));
    EXPECT_EQ(shown.cursor().shape(), Qt::SplitHCursor);
}

// From the end of the track a single step would snap back.
TEST_F(Divider, IsMovedByKeysAndAssistivePrograms) {
    panes.divider.setMinLimitOffset(60);
    panes.divider.setMaxLimitOffset(0);
    auto* accessible = QAccessible::queryAccessibleInterface(&shown);
    ASSERT_EQ(accessible->role(), QAccessible::Splitter);
    auto& value = *accessible->valueInterface();
    EXPECT_EQ(value.minimumValue().toInt(), -13);
    EXPECT_EQ(value.maximumValue().toInt(), 413);
    value.setCurrentValue(-10);
    for (auto [key, left] : {std::pair(Qt::Key_Left, -13),
                             {Qt::Key_Down, -13},
                             {Qt::Key_Right, 47},
                             {Qt::Key_Right, 57}}) {
        QTest::keyClick(&shown, key);
        EXPECT_EQ(panes.divider.Left, left);
        EXPECT_EQ(value.currentValue().toInt(), left);
        showFrame(panes);
        EXPECT_EQ(shown.focusPolicy(), left < 0 ? Qt::NoFocus : Qt::TabFocus);
    }
}

}  // namespace bracken::test
