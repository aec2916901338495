#include <QAbstractEventDispatcher>
#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>

#include "tests/platform_qt/form.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

class Controls : public QtTest {
  protected:
    Form& form = open<Form>();
};

TEST_F(Controls, AssistiveProgramsGetRolesNamesAndTips) {
    form.button.toolTip = std::string("a & <b>");
    showFrame(form);
    struct Case {
        Control& control;
        QAccessible::Role role;
        const char *name, *description;
    };
    for (const Case& c : {Case{form.popup, QAccessible::ComboBox, "Choice", ""},
                          {form.button, QAccessible::Button, "", "a & <b>"},
                          {form.bar, QAccessible::ProgressBar, "Progress", ""},
                          {form.wheel, QAccessible::Animation, "Busy", ""}}) {
        auto& seen = *QAccessible::queryAccessibleInterface(&widget(c.control));
        SCOPED_TRACE(c.control.name());
        EXPECT_EQ(seen.role(), c.role);
        EXPECT_EQ(seen.text(QAccessible::Name).toStdString(), c.name);
        EXPECT_EQ(seen.text(QAccessible::Description).toStdString(), c.description);
    }
}

TEST_F(Controls, CaptionsAreLiteral) {
    form.label.Caption = "k\xe4se & <b>";
    form.box.Caption = "This & th\u00e4t";
    showFrame(form);
    EXPECT_EQ(widget<QLabel>(form.label).text(), QStringLiteral("k\u00e4se & <b>"));
    EXPECT_EQ(widget<QCheckBox>(form.box).text(), QStringLiteral("This && th\u00e4t"));
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
}

TEST_F(Controls, AFieldTakesTypedTextAndShowsTheModels) {
    auto& field = widget<QLineEdit>(form.field);
    QTest::keyClicks(&field, QStringLiteral("abc"));
    EXPECT_EQ(form.field.Text.get(), "abc");
    form.field.Text = std::string(100'000, 'x') + "\xff";
    showFrame(form);
    EXPECT_EQ(field.text().size(), 100'001);
    EXPECT_EQ(form.field.Text.get().back(), '\xff') << "the bytes stay until the user edits";
    EXPECT_EQ(widget<QLineEdit>(form.password).echoMode(), QLineEdit::Password);
}

TEST_F(Controls, ABarShowsShareUnknownLengthAndEmptiness) {
    auto& bar = widget<QProgressBar>(form.bar);
    for (auto [value, maximum, shownValue, shownMaximum] :
         {std::array{3, 10, 3, 10}, {-1, 10, -1, 0}, {5, 0, 0, 1}}) {
        form.bar.Value = value;
        form.bar.Maximum = maximum;
        showFrame(form);
        EXPECT_EQ(bar.maximum(), shownMaximum);
        EXPECT_EQ(bar.value(), shownValue);
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
