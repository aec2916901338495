#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>

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

// The item of the window's menus as it shows once the user has opened them.
QAction& item(const QWidget& view, const char* text) {
    for (QMenu* menu : view.findChildren<QMenu*>()) Q_EMIT menu->aboutToShow();
    for (QAction* action : view.findChildren<QAction*>())
        if (action->text() == QLatin1String(text)) return *action;
    throw std::out_of_range(text);
}

class WindowTest : public QtTest {};

TEST_F(WindowTest, OneLargerThanTheScreenIsFittedAheadOfItsOpening) {
    auto& window = open<HugeForm>();
    EXPECT_EQ(window.opened, window.Width);
    const QRect screen = viewOf(window)->screen()->availableGeometry();
    waitFor([&] { return screen.contains(viewOf(window)->geometry()); });
    EXPECT_EQ(window.go.Left, window.Width - 100) << "the layout follows";
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

TEST_F(WindowTest, EditItemsFollowTheFocusAndCopyNoPassword) {
    auto& window = open<Form>();
    const QWidget& view = *viewOf(window);
    waitFor([&] { return view.isActiveWindow(); });
    for (const EditField* field : {&window.field, &window.password}) {
        auto& edit = widget<QLineEdit>(*field);
        edit.setFocus();
        QTest::keyClicks(&edit, QStringLiteral("secret"));
        EXPECT_FALSE(item(view, "&Copy").isEnabled());
        item(view, "Select &All").trigger();
        for (const char* copying : {"&Copy", "Cu&t"})
            EXPECT_EQ(item(view, copying).isEnabled(), field == &window.field);
        item(view, "&Delete").trigger();
        EXPECT_EQ(field->Text.get(), "");
    }
}

}  // namespace bracken::test
