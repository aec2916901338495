#include <QAbstractEventDispatcher>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>

#include "tests/platform_qt/form.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

class Controls : public QtTest {
  protected:
    Form& form = open<Form>();
};

TEST_F(Controls, PlaceAndVisibilityFollowTheModel) {
    auto& button = widget(form.button);
    form.button.place(33, 44, 55, 66);
    form.button.Enabled = false;
    form.field.Visible = false;
    waitFor([&] { return button.geometry() == QRect(33, 44, 55, 66); });
    EXPECT_FALSE(button.isEnabled());
    EXPECT_TRUE(widget(form.field).isHidden());
    form.button.Top = 300;
    waitFor([&] { return !button.isVisible(); });
    form.Height = 340;
    waitFor([&] { return button.isVisible(); });
}

TEST_F(Controls, AssistiveProgramsGetRolesNamesAndLabels) {
    form.button.toolTip = std::string("a & <b>");
    form.Title = std::string("A form");
    waitFor([&] { return viewOf(form)->windowTitle() == QStringLiteral("A form"); });
    struct Case {
        QWidget& widget;
        QAccessible::Role role;
        const char *name, *label, *description;
    };
    for (const Case& c : {Case{*viewOf(form), QAccessible::Window, "A form", "", ""},
                          {widget(form.field), QAccessible::EditableText, "Host", "Host", ""},
                          {widget(form.list), QAccessible::Table, "A form", "", ""},
                          {widget(form.popup), QAccessible::ComboBox, "Choice", "Choice", ""},
                          {widget(form.button), QAccessible::Button, "", "", "a & <b>"},
                          {widget(form.bar), QAccessible::ProgressBar, "Progress", "", ""},
                          {widget(form.wheel), QAccessible::Animation, "Busy", "", ""}}) {
        auto& seen = *QAccessible::queryAccessibleInterface(&c.widget);
        std::string label;
        for (auto& [other, is] : seen.relations(QAccessible::Label))
            label += other->text(QAccessible::Name).toStdString();
        SCOPED_TRACE(c.widget.objectName().toStdString());
        EXPECT_EQ(seen.role(), c.role);
        EXPECT_EQ(seen.text(QAccessible::Name).toStdString(), c.name);
        EXPECT_EQ(label, c.label);
        EXPECT_EQ(seen.text(QAccessible::Description).toStdString(), c.description);
    }
}

TEST_F(Controls, CaptionsAreLiteralAndFit) {
    form.label.Caption = "k\xe4se & <b>";
    form.box.Caption = "This & th\u00e4t";
    form.box.Value = true;
    form.button.Caption = "Show Only \"Not Found\" Result";
    auto& button = widget<QPushButton>(form.button);
    waitFor([&] { return !button.text().isEmpty(); });
    EXPECT_EQ(widget<QLabel>(form.label).text(), QStringLiteral("k\u00e4se & <b>"));
    EXPECT_EQ(widget<QCheckBox>(form.box).text(), QStringLiteral("This && th\u00e4t"));
    EXPECT_TRUE(widget<QCheckBox>(form.box).isChecked());
    const int full = button.fontMetrics().horizontalAdvance(button.text());
    form.button.Width = full;
    waitFor([&] { return button.width() == full; });
    EXPECT_LE(button.fontMetrics().horizontalAdvance(button.text()), full - 8);
}

TEST_F(Controls, APathThatIsTooLongShowsItsEndAndAllOfItInATip) {
    auto& label = widget(form.note);
    form.note.showsEnd = true;
    const auto picture = [&](const std::string& start, const std::string& end) {
        form.note.Caption = start + "/a_folder_of_a_long_name_that_is_too_wide_for_it" + end;
        showFrame(form);
        return label.grab().toImage();
    };
    const QImage whole = picture("/home", "/www");
    EXPECT_EQ(picture("/root", "/www"), whole);
    EXPECT_NE(picture("/root", "/web"), whole);
    EXPECT_EQ(tipAt(label, {5, 5}).join(QString()).toStdString(), form.note.Caption.get());
    form.note.Caption = std::string("/short");
    showFrame(form);
    tipAt(label, {5, 5});
    EXPECT_EQ(label.toolTip(), QString());
}

TEST_F(Controls, AFieldTakesTypedTextAndShowsTheModels) {
    auto& field = widget<QLineEdit>(form.field);
    int changes = 0;
    form.field.TextChange = [&] { changes++; };
    QTest::keyClicks(&field, QStringLiteral("abc"));
    EXPECT_EQ(form.field.Text.get(), "abc");
    EXPECT_EQ(changes, 3);
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_Adiaeresis, QStringLiteral("\u00e4"), {});
    EXPECT_EQ(form.field.Text.get(), "\xc3\xa4");
    form.field.Text = std::string(100'000, 'x') + "\xff";
    changes = 0;
    waitFor([&] { return field.text().size() == 100'001; });
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(form.field.Text.get().back(), '\xff') << "the bytes stay until the user edits";
    EXPECT_EQ(widget<QLineEdit>(form.password).echoMode(), QLineEdit::Password);
}

TEST_F(Controls, APopupFollowsTheModel) {
    auto& popup = widget<QComboBox>(form.popup);
    EXPECT_EQ(popup.currentIndex(), -1);
    for (auto* row : {"one", "two\n& more", "three"}) form.popup.AddRow(row);
    form.popup.ListIndex = 1;
    waitFor([&] { return popup.currentText() == QStringLiteral("two & more"); });
    QTest::keyClick(&popup, Qt::Key_Down);
    EXPECT_EQ(form.popup.ListIndex, 2);
    form.popup.DeleteAllRows();
    waitFor([&] { return popup.count() == 0; });
}

TEST_F(Controls, ABarShowsShareUnknownLengthAndEmptiness) {
    auto& bar = widget<QProgressBar>(form.bar);
    struct Case {
        int value, maximum, shownValue, shownMaximum;
    };
    for (const Case& c :
         {Case{3, 10, 3, 10}, Case{-1, 10, -1, 0}, Case{5, 0, 0, 1}, Case{20, 10, 10, 10}}) {
        form.bar.Value = c.value;
        form.bar.Maximum = c.maximum;
        waitFor([&] { return bar.maximum() == c.shownMaximum; });
        EXPECT_EQ(bar.value(), c.shownValue);
    }
}

TEST_F(Controls, AWheelTurnsOnlyWhileItIsVisible) {
    auto& wheel = widget(form.wheel);
    const QImage start = wheel.grab().toImage();
    waitFor([&] { return wheel.grab().toImage() != start; });
    form.wheel.Visible = false;
    waitFor([&] { return wheel.isHidden(); });
    EXPECT_TRUE(QAbstractEventDispatcher::instance()->registeredTimers(&wheel).isEmpty());
}

}  // namespace bracken::test
