#include <QApplication>
#include <QMenuBar>

#include "tests/platform_qt/form.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

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

TEST_F(WindowTest, OneLargerThanTheScreenIsFittedAheadOfItsOpening) {
    auto& window = open<HugeForm>();
    EXPECT_EQ(window.opened, window.Width);
    const QRect screen = viewOf(window)->screen()->availableGeometry();
    waitFor([&] { return screen.contains(viewOf(window)->geometry()); });
    EXPECT_EQ(window.go.Left, window.Width - 100) << "the layout follows";
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
    const auto keep = window.shared_from_this();
    viewOf(window)->close();
    EXPECT_EQ(closes, 1);
    waitFor([&] { return viewOf(*keep) == nullptr; });
}

TEST_F(WindowTest, ReturnPressesTheButtonInFocusElseTheEnabledDefaultOne) {
    auto& window = open<Form>();
    std::string presses;
    window.go.Action = [&] { presses += "go "; };
    window.button.Action = [&] { presses += "button "; };
    for (const Control* control : window.controls()) {
        QWidget& focus = widget(*control);
        if (focus.focusPolicy() == Qt::NoFocus) continue;
        focus.setFocus();
        for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
            QTest::keyClick(&focus, key);
        EXPECT_EQ(std::exchange(presses, ""),
                  control == &window.button ? "button button " : "go go ")
            << control->name();
    }
    EXPECT_FALSE(window.closed()) << "Escape does nothing";
    window.go.Enabled = false;
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
