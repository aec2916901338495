#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>

#include "framework/controls/check_box.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/popup_menu.h"
#include "framework/controls/progress.h"
#include "framework/controls/push_button.h"
#include "framework/controls/static_text.h"
#include "platform/qt/progress_wheel_view.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

namespace {

class Form : public Window {
  public:
    StaticText label{*this, "label"};
    EditField field{*this, "field"};
    EditField password{*this, "password"};
    CheckBox box{*this, "box"};
    PushButton button{*this, "button"};
    PopupMenu popup{*this, "popup"};
    ProgressBar bar{*this, "bar"};
    ProgressWheel wheel{*this, "wheel"};
    int presses = 0;

  protected:
    void Layout() override {
        Width = 400;
        Height = 300;
    }
    void CreateControls() override {
        label.place(10, 10, 70, 20);
        label.Caption = "Host & <b>port</b>";
        field.place(90, 10, 200, 22);
        password.place(90, 40, 200, 22);
        password.Password = true;
        box.place(10, 70, 120, 20);
        button.place(10, 100, 238, 20);
        popup.place(10, 130, 200, 20);
        bar.place(10, 160, 200, 20);
        wheel.place(10, 190, 16, 16);
        button.Action = [this] { presses++; };
    }
};

}  // namespace

class Controls : public QtTest {
  protected:
    Form& form = open<Form>();
};

TEST_F(Controls, WhatAllHaveInCommonFollowsTheModel) {
    auto& button = widget(form.button);
    form.button.place(33, 44, 55, 66);
    form.button.Enabled = false;
    form.field.Visible = false;
    waitFor([&] { return button.geometry() == QRect(33, 44, 55, 66); });
    EXPECT_FALSE(button.isEnabled());
    EXPECT_TRUE(widget(form.field).isHidden());
    form.button.place(33, 44, -5, -6);
    waitFor([&] { return button.size() == QSize(0, 0); });
}

TEST_F(Controls, OneOutsideTheContentIsHiddenUntilTheWindowGrows) {
    form.button.Top = 300;
    waitFor([&] { return !widget(form.button).isVisible(); });
    form.Height = 340;
    waitFor([&] { return widget(form.button).isVisible(); });
}

TEST_F(Controls, ALabelShowsItsTextLiterally) {
    auto& label = widget<QLabel>(form.label);
    EXPECT_EQ(label.text(), QStringLiteral("Host & <b>port</b>"));
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    form.label.Caption = "k\xe4se";
    waitFor([&] { return label.text() == QStringLiteral("k\u00e4se"); });
}

TEST_F(Controls, AFieldTakesTypedTextIntoTheModel) {
    auto& field = widget<QLineEdit>(form.field);
    int changes = 0;
    form.field.TextChange = [&] { changes++; };
    QTest::keyClicks(&field, QStringLiteral("abc"));
    EXPECT_EQ(form.field.Text.get(), "abc");
    EXPECT_EQ(changes, 3);
    QTest::keyClick(&field, Qt::Key_Backspace);
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_Adiaeresis, QStringLiteral("\u00e4"), {});
    EXPECT_EQ(form.field.Text.get(), "\xc3\xa4");
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(form.field.Text.get(), "\xc3\xa4") << "undone";
}

TEST_F(Controls, AFieldShowsTheModelsTextAndFiresNothing) {
    auto& field = widget<QLineEdit>(form.field);
    form.field.Text = std::string(100'000, 'x') + "\xff";
    int changes = 0;
    form.field.TextChange = [&] { changes++; };
    waitFor([&] { return field.text().size() == 100'001; });
    EXPECT_EQ(field.text().back(), QChar(0xff));
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(form.field.Text.get().back(), '\xff') << "the bytes stay until the user edits";
    EXPECT_EQ(widget<QLineEdit>(form.password).echoMode(), QLineEdit::Password);
}

TEST_F(Controls, ACheckBoxFollowsModelAndMouse) {
    auto& box = widget<QCheckBox>(form.box);
    form.box.Value = true;
    form.box.Caption = "This & that";
    waitFor([&] { return box.isChecked(); });
    EXPECT_EQ(box.text(), QStringLiteral("This && that"));
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, 10));
    EXPECT_FALSE(form.box.Value);
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_TRUE(form.box.Value);
}

TEST_F(Controls, AButtonIsPressedByMouseAndKeyWhileItIsEnabled) {
    auto& button = widget<QPushButton>(form.button);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(form.presses, 2);
    form.button.Enabled = false;
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(form.presses, 2) << "not even before the next frame";
}

TEST_F(Controls, CaptionsOfTheFixedLayoutFit) {
    form.button.Caption = "Show Only \"Not Found\" Result";
    auto& button = widget<QPushButton>(form.button);
    waitFor([&] { return !button.text().isEmpty(); });
    EXPECT_LE(button.fontMetrics().horizontalAdvance(button.text()), 238 - 8);
    EXPECT_LE(button.fontMetrics().height(), 20);
}

TEST_F(Controls, APopupFollowsTheModelAndReportsAnotherChoiceOnly) {
    auto& popup = widget<QComboBox>(form.popup);
    EXPECT_EQ(popup.currentIndex(), -1);
    for (auto* row : {"one", "two & more", "three"}) form.popup.AddRow(row);
    form.popup.ListIndex = 1;
    waitFor([&] { return popup.count() == 3; });
    EXPECT_EQ(popup.currentText(), QStringLiteral("two & more"));
    int changes = 0;
    form.popup.Change = [&] { changes++; };
    QTest::keyClick(&popup, Qt::Key_Down);
    EXPECT_EQ(form.popup.ListIndex, 2);
    QTest::keyClick(&popup, Qt::Key_Down);
    EXPECT_EQ(changes, 1);
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
        if (c.shownMaximum > 0) {
            EXPECT_EQ(bar.value(), c.shownValue);
        }
    }
}

TEST_F(Controls, AWheelTurnsWhileItIsVisible) {
    auto& wheel = widget<QWidget>(form.wheel);
    auto& view = dynamic_cast<ProgressWheelView&>(wheel);
    int start = view.spoke();
    waitFor([&] { return view.spoke() != start; });
    QImage before = wheel.grab().toImage();
    int spoke = view.spoke();
    waitFor([&] { return view.spoke() != spoke; });
    EXPECT_NE(wheel.grab().toImage(), before);
}

TEST_F(Controls, AFieldIsNamedByTheLabelBesideIt) {
    EXPECT_EQ(widget(form.field).accessibleName(), QStringLiteral("Host & <b>port</b>"));
}

}  // namespace bracken::test
