#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>

#include "tests/platform_qt/form.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

class Menus : public QtTest {
  protected:
    Menus() {
        waitFor([&] { return viewOf(form)->isActiveWindow(); });
    }

    // The item as it shows once the user has opened the menus.
    QAction& item(const char* text) {
        for (QMenu* menu : viewOf(form)->findChildren<QMenu*>()) Q_EMIT menu->aboutToShow();
        for (QAction* action : viewOf(form)->findChildren<QAction*>())
            if (action->text() == QLatin1String(text)) return *action;
        throw std::out_of_range(text);
    }

    Form& form = open<Form>();
};

TEST_F(Menus, EditItemsFollowTheFocus) {
    widget(form.field).setFocus();
    form.field.Text = "some text";
    showFrame(form);
    EXPECT_FALSE(item("&Copy").isEnabled());
    item("Select &All").trigger();
    EXPECT_TRUE(item("&Copy").isEnabled());
    item("Cu&t").trigger();
    EXPECT_EQ(form.field.Text.get(), "");
    item("&Paste").trigger();
    EXPECT_EQ(form.field.Text.get(), "some text");
    item("&Undo").trigger();
    EXPECT_EQ(form.field.Text.get(), "");
}

TEST_F(Menus, APasswordIsNeverCopied) {
    auto& password = widget<QLineEdit>(form.password);
    password.setFocus();
    QApplication::clipboard()->setText(QStringLiteral("before"));
    QTest::keyClicks(&password, QStringLiteral("secret"));
    password.selectAll();
    QTest::keyClick(&password, Qt::Key_C, Qt::ControlModifier);
    EXPECT_FALSE(item("&Copy").isEnabled());
    EXPECT_FALSE(item("Cu&t").isEnabled());
    EXPECT_TRUE(item("&Delete").isEnabled());
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("before"));
}

}  // namespace bracken::test
