#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenuBar>

#include "framework/controls/edit_field.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

namespace {

class Form : public Window {
  public:
    EditField field{*this, "field"};
    EditField password{*this, "password"};

    bool mayClose = true;
    int closesByMenu = 0;

    void Event_EnableMenuItems() override {
        if (!mayClose) Application::current()->MenuBar->Child("FileClose")->Enabled = false;
    }

  protected:
    void Layout() override {
        Width = 300;
        Height = 200;
    }
    void CreateControls() override {
        field.place(10, 10, 200, 22);
        password.place(10, 40, 200, 22);
        password.Password = true;
    }
    void AddMenuHandlers() override {
        addMenuHandler("FileClose", [this] {
            closesByMenu++;
            return true;
        });
    }
};

}  // namespace

class Menus : public QtTest {
  protected:
    Menus() {
        waitFor([&] { return viewOf(form)->isActiveWindow(); });
    }

    QAction& action(const char* text) {
        for (QAction* action : viewOf(form)->findChildren<QAction*>())
            if (action->text() == QLatin1String(text)) return *action;
        throw std::out_of_range(text);
    }
    // Opens the menus as the user does, so that they show what is enabled.
    void openMenus() {
        for (QMenu* menu : viewOf(form)->findChildren<QMenu*>()) Q_EMIT menu->aboutToShow();
    }

    Form& form = open<Form>();
    QLineEdit& field = widget<QLineEdit>(form.field);
};

TEST_F(Menus, ItemsHaveTextsAndShortcutsOfThisPlatform) {
    EXPECT_EQ(action("Cu&t").shortcut(), QKeySequence(QStringLiteral("Ctrl+X")));
    EXPECT_EQ(action("&Quit").shortcut(), QKeySequence(QStringLiteral("Ctrl+Q")));
    EXPECT_TRUE(action("&Delete").shortcut().isEmpty());
    EXPECT_FALSE(viewOf(form)->findChild<QMenuBar*>()->isNativeMenuBar());
}

TEST_F(Menus, AShortcutReachesTheWindowsHandlerUnlessItIsDisabled) {
    QTest::keyClick(&field, Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(form.closesByMenu, 1);
    form.mayClose = false;
    QTest::keyClick(&field, Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(form.closesByMenu, 1);
    EXPECT_FALSE(action("Close").isEnabled());
}

TEST_F(Menus, EditItemsFollowTheFocus) {
    field.setFocus();
    form.field.Text = "some text";
    waitFor([&] { return !field.text().isEmpty(); });
    openMenus();
    EXPECT_FALSE(action("&Copy").isEnabled());
    EXPECT_TRUE(action("Select &All").isEnabled());
    action("Select &All").trigger();
    openMenus();
    EXPECT_TRUE(action("&Copy").isEnabled());
    action("Cu&t").trigger();
    EXPECT_EQ(form.field.Text.get(), "");
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("some text"));
    openMenus();
    action("&Paste").trigger();
    EXPECT_EQ(form.field.Text.get(), "some text");
    openMenus();
    action("&Undo").trigger();
    EXPECT_EQ(form.field.Text.get(), "");
}

TEST_F(Menus, APasswordIsNeverCopied) {
    auto& password = widget<QLineEdit>(form.password);
    password.setFocus();
    QApplication::clipboard()->setText(QStringLiteral("before"));
    QTest::keyClicks(&password, QStringLiteral("secret"));
    password.selectAll();
    QTest::keyClick(&password, Qt::Key_C, Qt::ControlModifier);
    openMenus();
    EXPECT_FALSE(action("&Copy").isEnabled());
    EXPECT_FALSE(action("Cu&t").isEnabled());
    EXPECT_TRUE(action("&Delete").isEnabled());
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("before"));
}

TEST_F(Menus, StandardKeysWorkInAField) {
    field.setFocus();
    QTest::keyClicks(&field, QStringLiteral("word"));
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(form.field.Text.get(), "");
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.field.Text.get(), "wordword");
}

}  // namespace bracken::test
