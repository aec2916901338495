#include <QAbstractEventDispatcher>
#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>

#include "splitter/smart_splitter.h"
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

class Panes : public Window {
  public:
    Canvas min{*this, "min"};
    Canvas max{*this, "max"};
    SmartSplitter divider{*this, "divider"};

  protected:
    void Layout() override { Width = Height = 500; }
    void CreateControls() override {
        min.place(0, 10, 200, 200);
        divider.place(200, 10, 13, 200);
        max.place(213, 10, 200, 200);
    }
};

class Divider : public QtTest {
  protected:
    Panes& panes = open<Panes>();
    QWidget& shown = widget(panes.divider);
};

TEST_F(Divider, ShowsItsHandleAndItsPointer) {
    panes.divider.setHandleType(4);
    showFrame(panes);
    const QImage seen = shown.grab().toImage();
    EXPECT_NE(seen.pixel(seen.rect().center()), seen.pixel(0, 0));
    EXPECT_EQ(shown.cursor().shape(), Qt::SplitHCursor);
}

// From the end of the track a single step would snap back.
TEST_F(Divider, IsMovedByKeysAndAssistivePrograms) {
    panes.divider.setMinLimitOffset(60);
    panes.divider.setMaxLimitOffset(0);
    auto* accessible = QAccessible::queryAccessibleInterface(&shown);
    ASSERT_EQ(accessible->role(), QAccessible::Splitter);
    auto& value = *accessible->valueInterface();
    EXPECT_EQ(value.minimumValue().toInt(), -13);
    EXPECT_EQ(value.maximumValue().toInt(), 413);
    value.setCurrentValue(-10);
    for (auto [key, left] : {std::pair(Qt::Key_Left, -13),
                             {Qt::Key_Down, -13},
                             {Qt::Key_Right, 47},
                             {Qt::Key_Right, 57}}) {
        QTest::keyClick(&shown, key);
        EXPECT_EQ(panes.divider.Left, left);
        EXPECT_EQ(value.currentValue().toInt(), left);
        showFrame(panes);
        EXPECT_EQ(shown.focusPolicy(), left < 0 ? Qt::NoFocus : Qt::TabFocus);
    }
}

}  // namespace bracken::test
