#include <QAccessible>
#include <QPainter>
#include <QPixmap>

#include "splitter/smart_splitter.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

class Panes : public Window {
  public:
    Canvas min{*this, "min"};
    Canvas max{*this, "max"};
    SmartSplitter upright{*this, "upright"};
    SmartSplitter lying{*this, "lying"};

  protected:
    void Layout() override {
        Width = 500;
        Height = 400;
    }
    void CreateControls() override {
        min.place(0, 10, 200, 200);
        upright.place(200, 10, 13, 200);
        max.place(213, 10, 200, 200);
        lying.place(20, 300, 200, 13);
    }
};

class Other : public Window {};

class CanvasWidget : public QtTest {
  protected:
    Panes& panes = open<Panes>();
};

TEST_F(CanvasWidget, ShowsTheModelsPixels) {
    for (SmartSplitter* splitter : {&panes.upright, &panes.lying}) {
        splitter->setHandleType(4);
        showFrame(panes);
        QWidget& shown = widget(*splitter);
        const QRect place(shown.mapTo(shown.window(), QPoint()), shown.size());
        const QImage seen =
            shown.window()->grab(place).toImage().convertToFormat(QImage::Format_ARGB32);
        const Pixels& pixels = splitter->paint();
        QImage wanted(pixels.width, pixels.height, QImage::Format_ARGB32);
        // Of a corner, where no handle reaches.
        wanted.fill(seen.pixel(0, 0));
        QPainter(&wanted).drawImage(0, 0,
                                    QImage(reinterpret_cast<const uchar*>(pixels.argb.data()),
                                           pixels.width, pixels.height, QImage::Format_ARGB32));
        EXPECT_EQ(seen, wanted) << splitter->name();
        EXPECT_NE(seen.pixel(seen.rect().center()), seen.pixel(0, 0));
    }
}

// From the end of the track a single step would snap back.
TEST_F(CanvasWidget, KeysAndAssistiveProgramsMoveADivider) {
    panes.upright.setMinLimitOffset(60);
    panes.upright.setMaxLimitOffset(0);
    QWidget& divider = widget(panes.upright);
    auto* accessible = QAccessible::queryAccessibleInterface(&divider);
    ASSERT_EQ(accessible->role(), QAccessible::Splitter);
    auto& value = *accessible->valueInterface();
    EXPECT_EQ(value.minimumValue().toInt(), -13);
    EXPECT_EQ(value.maximumValue().toInt(), 413);
    value.setCurrentValue(-10);
    for (auto [key, left] : {std::pair(Qt::Key_Left, -13),
                             {Qt::Key_Down, -13},
                             {Qt::Key_Right, 47},
                             {Qt::Key_Right, 57},
                             {Qt::Key_Left, 47}}) {
        QTest::keyClick(&divider, key);
        EXPECT_EQ(panes.upright.Left, left);
        EXPECT_EQ(value.currentValue().toInt(), left);
        showFrame(panes);
        EXPECT_EQ(divider.focusPolicy(), left < 0 ? Qt::NoFocus : Qt::TabFocus);
    }
    QTest::keyClick(&widget(panes.lying), Qt::Key_Up);
    EXPECT_EQ(panes.lying.Top, 290);
}

TEST_F(CanvasWidget, HasItsPointerAndIsActiveWithItsWindow) {
    EXPECT_EQ(widget(panes.upright).cursor().shape(), Qt::SplitHCursor);
    EXPECT_EQ(widget(panes.lying).cursor().shape(), Qt::SplitVCursor);
    EXPECT_EQ(widget(panes.min).cursor().shape(), Qt::ArrowCursor);
    for (const bool active : {true, false}) {
        QWidget& view = *viewOf(active ? panes : static_cast<Window&>(open<Other>()));
        view.activateWindow();
        waitFor([&] { return view.isActiveWindow(); });
        EXPECT_EQ(panes.upright.Active, active);
    }
}

}  // namespace bracken::test
