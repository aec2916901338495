#include <QAccessible>
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
    static void showsThePixels(Canvas& canvas) {
        showFrame(dynamic_cast<Window&>(canvas.window()));
        QWidget& shown = widget(canvas);
        QRect place(shown.mapTo(shown.window(), QPoint()), shown.size());
        QImage seen = shown.window()->grab(place).toImage().convertToFormat(QImage::Format_ARGB32);
        const Pixels& pixels = canvas.paint();
        ASSERT_EQ(seen.size(), QSize(pixels.width, pixels.height));
        // A corner, where no handle reaches.
        uint32_t ground = seen.pixel(0, 0);
        int painted = 0;
        for (int y = 0; y < pixels.height; ++y)
            for (int x = 0; x < pixels.width; ++x) {
                uint32_t value = pixels.at(x, y);
                painted += value != clearPixel ? 1 : 0;
                ASSERT_EQ(seen.pixel(x, y), value == clearPixel ? ground : value) << x << ", " << y;
            }
        EXPECT_GT(painted, 0);
    }
};

TEST_F(CanvasWidget, ShowsTheModelsPixels) {
    Panes& panes = open<Panes>();
    for (SmartSplitter* splitter : {&panes.upright, &panes.lying})
        for (int type : {1, 2, 3, 4}) {
            SCOPED_TRACE(splitter->name() + std::to_string(type));
            splitter->setHandleType(type);
            showsThePixels(*splitter);
        }
}

// Several events may come between two frames: the widget then still stands where it was.
TEST_F(CanvasWidget, TheDividerFollowsTheMouseAheadOfTheFrames) {
    Panes& panes = open<Panes>();
    panes.upright.setMinLimitOffset(0);
    panes.upright.setMaxLimitOffset(0);
    QWidget& divider = widget(panes.upright);
    auto send = [&](QEvent::Type type, int x, Qt::MouseButtons buttons) {
        QPointF at = divider.mapFromParent(QPoint(x, 100));
        QMouseEvent event(type, at, divider.mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&divider, &event);
    };
    send(QEvent::MouseButtonPress, 205, Qt::LeftButton);
    send(QEvent::MouseMove, 245, Qt::LeftButton);
    send(QEvent::MouseMove, 95, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, 95, Qt::NoButton);
    send(QEvent::MouseMove, 400, Qt::NoButton);
    EXPECT_EQ(panes.upright.Left, 90);
    EXPECT_EQ(panes.min.Width, 90);
    waitFor([&] { return widget(panes.max).geometry() == QRect(103, 10, 310, 200); });
}

// From the end of the track a single step would snap back.
TEST_F(CanvasWidget, KeysAndAssistiveProgramsMoveADivider) {
    Panes& panes = open<Panes>();
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
        EXPECT_EQ(panes.min.Width, left);
        showFrame(panes);
        EXPECT_EQ(divider.focusPolicy(), left < 0 ? Qt::NoFocus : Qt::TabFocus);
    }
    QTest::keyClick(&widget(panes.lying), Qt::Key_Up);
    EXPECT_EQ(panes.lying.Top, 290);
}

TEST_F(CanvasWidget, HasItsPointerAndIsActiveWithItsWindow) {
    Panes& panes = open<Panes>();
    EXPECT_EQ(widget(panes.upright).cursor().shape(), Qt::SplitHCursor);
    EXPECT_EQ(widget(panes.lying).cursor().shape(), Qt::SplitVCursor);
    EXPECT_EQ(widget(panes.min).cursor().shape(), Qt::ArrowCursor);
    for (bool active : {true, false, true}) {
        QWidget& view = *viewOf(active ? panes : static_cast<Window&>(open<Other>()));
        view.activateWindow();
        waitFor([&] { return view.isActiveWindow(); });
        EXPECT_EQ(panes.upright.Active, active);
    }
}

}  // namespace bracken::test
