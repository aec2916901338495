#include <QApplication>
#include <QMenuBar>

#include "tests/platform_qt/form.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

class FixedForm : public Form {
  protected:
    void Layout() override {
        Form::Layout();
        Resizeable = false;
    }
};

class HugeForm : public Form {
  public:
    int opened = 0;

  protected:
    void Layout() override { Width = Height = 9000; }
    void CreateControls() override {
        go.place(8900, 8970, 90, 20);
        go.LockRight = go.LockBottom = true;
    }
    void Event_Open() override { opened = Width; }
};

// The content area's frame on the screen.
QRect contentFrame(const QWidget& view) {
    return view.geometry().adjusted(0, view.findChild<QMenuBar*>()->height(), 0, 0);
}

class WindowTest : public QtTest {};

TEST_F(WindowTest, AFrameComesBackOverAHundredOpenings) {
    const QRect stored(-150, 37, 333, 222);
    QRect frame = stored;
    for (int opening = 0; opening < 100; opening++) {
        auto& window = Windows::get().instance<Form>();
        window.Left = frame.left();
        window.Top = frame.top();
        window.Width = frame.width();
        window.Height = frame.height();
        ASSERT_TRUE(waitFor([&] {
            QWidget* view = viewOf(window);
            return view != nullptr && contentFrame(*view) == stored;
        })) << opening;
        auto keep = window.shared_from_this();
        window.Close();
        frame = {window.Left, window.Top, window.Width, window.Height};
    }
    EXPECT_EQ(frame, stored);
}

TEST_F(WindowTest, BoundsAreTheUsersOnly) {
    auto& window = open<Form>();
    window.Width = 40;
    waitFor([&] { return viewOf(window)->width() == 40; });
    EXPECT_EQ(window.Width, 40);
    auto& fixed = open<FixedForm>();
    for (int height : {225, 400, 185}) {
        fixed.Height = height;
        waitFor([&] { return contentFrame(*viewOf(fixed)).height() == height; });
        EXPECT_EQ(viewOf(fixed)->minimumSize(), viewOf(fixed)->maximumSize());
    }
}

TEST_F(WindowTest, OneLargerThanTheScreenIsFittedAheadOfItsOpening) {
    auto& window = open<HugeForm>();
    EXPECT_EQ(window.opened, window.Width);
    EXPECT_TRUE(viewOf(window)->screen()->availableGeometry().contains(viewOf(window)->geometry()));
    EXPECT_EQ(window.go.Left, window.Width - 100) << "the layout follows";
    EXPECT_EQ(window.go.Top, window.Height - 30);
    window.Height = 9000;
    waitFor([&] { return contentFrame(*viewOf(window)).height() == 9000; });
}

TEST_F(WindowTest, HidesShowsAndCloses) {
    auto& window = open<Form>();
    int closes = 0;
    window.closing = [&] { closes++; };
    window.Visible = false;
    waitFor([&] { return !viewOf(window)->isVisible(); });
    window.Show();
    waitFor([&] { return viewOf(window)->isVisible(); });
    viewOf(window)->setWindowState(Qt::WindowMinimized | Qt::WindowMaximized);
    window.Show();
    waitFor([&] { return viewOf(window)->windowState() == Qt::WindowMaximized; });
    auto keep = window.shared_from_this();
    viewOf(window)->close();
    EXPECT_EQ(closes, 1);
    waitFor([&] { return viewOf(*keep) == nullptr; });
}

TEST_F(WindowTest, ReturnPressesTheButtonInFocusElseTheEnabledDefaultOne) {
    auto& window = open<Form>();
    std::string presses;
    window.go.Action = [&] { presses += "go "; };
    window.button.Action = [&] { presses += "button "; };
    for (Control* control : window.controls()) {
        QWidget& focus = widget(*control);
        if (focus.focusPolicy() == Qt::NoFocus) continue;
        presses.clear();
        focus.setFocus();
        QTest::keyClick(&focus, Qt::Key_Return);
        QTest::keyClick(&focus, Qt::Key_Enter);
        QTest::keyClick(&focus, Qt::Key_Escape);
        EXPECT_EQ(presses, control == &window.button ? "button button " : "go go ")
            << control->name();
    }
    EXPECT_FALSE(window.closed()) << "Escape does nothing";
    window.go.Enabled = false;
    presses.clear();
    QTest::keyClick(&widget(window.field), Qt::Key_Return);
    EXPECT_EQ(presses, "");
}

TEST_F(WindowTest, TabGoesByIndexOrCreationAndPassesHiddenControls) {
    auto& window = open<Form>();
    window.popup.Visible = false;
    window.button.Top = 500;
    waitFor([&] { return widget(window.button).isHidden() && viewOf(window)->isActiveWindow(); });
    widget(window.field).setFocus();
    QString order;
    do {
        order += QApplication::focusWidget()->objectName() + u' ';
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (QApplication::focusWidget() != &widget(window.field) && order.size() < 99);
    EXPECT_EQ(order.toStdString(), "field box password list go ");
}

}  // namespace bracken::test
