#include <QApplication>
#include <QMenuBar>
#include <QRandomGenerator>

#include "framework/controls/check_box.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/listbox.h"
#include "framework/controls/popup_menu.h"
#include "framework/controls/push_button.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

namespace {

class Form : public Window {
  public:
    EditField first{*this, "first"};
    Listbox list{*this, "list"};
    PopupMenu popup{*this, "popup"};
    CheckBox box{*this, "box"};
    PushButton other{*this, "other"};
    PushButton go{*this, "go"};
    int presses = 0;
    int resizes = 0;
    int closes = 0;

  protected:
    void Layout() override {
        Title = "Form";
        Width = 300;
        Height = 200;
    }
    void CreateControls() override {
        RectControl* all[] = {&first, &list, &popup, &box, &other, &go};
        int top = 5;
        for (RectControl* control : all) {
            control->place(10, top, 200, 22);
            top += 25;
        }
        go.Default = true;
        go.LockRight = true;
        go.Action = [this] { presses++; };
    }
    void Event_Resized() override { resizes++; }
    void Event_Close() override { closes++; }
};

class FixedForm : public Form {
  protected:
    void Layout() override {
        Form::Layout();
        Resizeable = false;
    }
};

class BareForm : public Form {
  protected:
    void Layout() override {
        Form::Layout();
        MenuBarVisible = false;
    }
};

// The content area's frame on the screen.
QRect contentFrame(const QWidget& view) {
    auto* bar = view.findChild<QMenuBar*>();
    int menu = bar == nullptr ? 0 : bar->height();
    return view.geometry().adjusted(0, menu, 0, 0);
}

QRect frameOf(const Window& window) {
    return {window.Left, window.Top, window.Width, window.Height};
}

}  // namespace

class WindowTest : public QtTest {};

TEST_F(WindowTest, AFrameComesBackOverAHundredOpenings) {
    QRect stored(-150, 37, 333, 222);
    for (int opening = 0; opening < 100; opening++) {
        auto& window = Windows::open().instance<Form>();
        window.Left = stored.left();
        window.Top = stored.top();
        window.Width = stored.width();
        window.Height = stored.height();
        waitForView(window);
        ASSERT_TRUE(waitFor([&] { return contentFrame(*viewOf(window)) == stored; })) << opening;
        auto keep = window.shared_from_this();
        window.Close();
        stored = frameOf(window);
    }
    EXPECT_EQ(stored, QRect(-150, 37, 333, 222));
}

TEST_F(WindowTest, TheUsersResizingReachesTheModel) {
    auto& window = open<Form>();
    QWidget& view = *viewOf(window);
    waitFor([&] {
        view.setGeometry(50, 60, 400 + QRandomGenerator::global()->bounded(2), 330);
        return window.Width >= 400;
    });
    EXPECT_EQ(frameOf(window), contentFrame(view));
    EXPECT_GT(window.resizes, 0);
    EXPECT_EQ(window.go.Left, 10 + window.Width - 300);
}

TEST_F(WindowTest, AFixedWindowTakesItsSizeFromTheModelOnly) {
    auto& window = open<FixedForm>();
    QWidget& view = *viewOf(window);
    for (int height : {225, 400, 185}) {
        window.Height = height;
        waitFor([&] { return contentFrame(view).height() == height; });
        EXPECT_EQ(view.minimumSize(), view.maximumSize());
    }
    EXPECT_EQ(window.Height, 185);
}

TEST_F(WindowTest, AMinimumBindsTheUserOnly) {
    auto& window = open<Form>();
    window.Width = 40;
    waitFor([&] { return viewOf(window)->width() == 40; });
    EXPECT_EQ(window.Width, 40);
}

TEST_F(WindowTest, TheMenuBarIsThereUnlessTheWindowHasNone) {
    EXPECT_NE(viewOf(open<FixedForm>())->findChild<QMenuBar*>(), nullptr);
    auto& bare = open<BareForm>();
    EXPECT_EQ(viewOf(bare)->findChild<QMenuBar*>(), nullptr);
    EXPECT_EQ(viewOf(bare)->windowTitle(), QStringLiteral("Form"));
}

TEST_F(WindowTest, TheCloseBoxClosesTheModelAndThenTheView) {
    auto& window = open<Form>();
    auto keep = std::static_pointer_cast<Form>(window.shared_from_this());
    viewOf(window)->close();
    EXPECT_EQ(keep->closes, 1);
    waitFor([&] { return viewOf(*keep) == nullptr; });
}

TEST_F(WindowTest, HidingAndShowingFollowTheModel) {
    auto& window = open<Form>();
    window.Visible = false;
    waitFor([&] { return !viewOf(window)->isVisible(); });
    window.Show();
    waitFor([&] { return viewOf(window)->isVisible(); });
}

TEST_F(WindowTest, ReturnPressesTheEnabledDefaultButtonFromAnywhere) {
    auto& window = open<Form>();
    int presses = 0;
    for (RectControl* control :
         {static_cast<RectControl*>(&window.first), static_cast<RectControl*>(&window.list),
          static_cast<RectControl*>(&window.popup), static_cast<RectControl*>(&window.box),
          static_cast<RectControl*>(&window.other), static_cast<RectControl*>(&window.go)}) {
        QWidget& focus = widget(*control);
        focus.setFocus();
        QTest::keyClick(&focus, Qt::Key_Return);
        QTest::keyClick(&focus, Qt::Key_Enter);
        EXPECT_EQ(window.presses, presses += 2) << control->name();
        QTest::keyClick(&focus, Qt::Key_Escape);
    }
    EXPECT_FALSE(window.closed()) << "Escape does nothing";
    window.go.Enabled = false;
    QTest::keyClick(&widget(window.first), Qt::Key_Return);
    EXPECT_EQ(window.presses, presses);
}

TEST_F(WindowTest, TabGoesByCreationAndPassesHiddenControls) {
    auto& window = open<Form>();
    window.popup.Visible = false;
    window.other.Top = 500;
    waitFor([&] { return widget(window.other).isHidden(); });
    waitFor([&] { return viewOf(window)->isActiveWindow(); });
    widget(window.first).setFocus();
    for (Control* next :
         {static_cast<Control*>(&window.list), static_cast<Control*>(&window.box),
          static_cast<Control*>(&window.go), static_cast<Control*>(&window.first)}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), next->name());
    }
}

}  // namespace bracken::test
