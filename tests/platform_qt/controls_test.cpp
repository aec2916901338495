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
    form.button.place(33, 44, -5, -6);
    waitFor([&] { return button.size() == QSize(0, 0); });
}

TEST_F(Controls, AssistiveProgramsGetRolesNamesAndLabels) {
    form.button.toolTip = std::string("a & <b>");
    showFrame(form);
    form.Title = std::string("Form");
    waitFor([&] { return viewOf(form)->windowTitle() == QStringLiteral("Form"); });
    struct Case {
        QWidget& widget;
        QAccessible::Role role;
        const char *name, *label, *description;
    };
    for (const Case& c : {Case{*viewOf(form), QAccessible::Window, "Form", "", ""},
                          {widget(form.field), QAccessible::EditableText, "Host", "Host", ""},
                          {widget(form.password), QAccessible::EditableText, "Form", "", ""},
                          {widget(form.list), QAccessible::Table, "Form", "", ""},
                          {widget(form.popup), QAccessible::ComboBox, "Choice", "Choice", ""},
                          {widget(form.button), QAccessible::Button, "", "", "a & <b>"},
                          {widget(form.bar), QAccessible::ProgressBar, "Progress", "", ""},
                          {widget(form.wheel), QAccessible::Animation, "Busy", "", ""}}) {
        auto& seen = *QAccessible::queryAccessibleInterface(&c.widget);
        std::string label;
        for (auto& [other, is] : seen.relations(QAccessible::Label))
            label += other->text(QAccessible::Name).toStdString();
        EXPECT_EQ(seen.role(), c.role) << c.widget.objectName().toStdString();
        EXPECT_EQ(seen.text(QAccessible::Name).toStdString(), c.name);
        EXPECT_EQ(label, c.label) << c.widget.objectName().toStdString();
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
    int full = button.fontMetrics().horizontalAdvance(button.text());
    form.button.Width = full;
    waitFor([&] { return button.width() == full; });
    EXPECT_LE(button.fontMetrics().horizontalAdvance(button.text()), full - 8);
    EXPECT_LE(button.fontMetrics().height(), 20);
}

TEST_F(Controls, FramesAreVisibleOnLightOnDarkAndOnBlack) {
    QWidget& box = widget(form.box);
    struct Case {
        QWidget& widget;
        int window, base;
    };
    for (auto [framed, window, base] : {Case{box, 53, 42},
                                        {box, 239, 255},
                                        {box, 0, 0},
                                        {widget(form.field), 0, 0},
                                        {widget(form.list), 0, 0},
                                        {widget(form.popup), 0, 0},
                                        {widget(form.go), 0, 0}}) {
        const QColor ground(window, window, window);
        QPalette palette(ground);
        palette.setColor(QPalette::Base, QColor(base, base, base));
        framed.setPalette(palette);
        QImage image = framed.grab({0, 0, 14, framed.height()}).toImage();
        double best = 1;
        for (int y = 0; y < image.height(); y++)
            best = std::max(best, contrast(image.pixelColor(image.width() / 2, y), ground));
        EXPECT_GT(best, 3) << framed.objectName().toStdString() << window;
    }
}

class Labelled : public Window {
  public:
    StaticText path{*this, "path"};

  protected:
    void Layout() override { Width = Height = 300; }
    void CreateControls() override {
        path.place(10, 10, 280, 49);
        path.MultiLine = path.showsEnd = true;
    }
};

TEST_F(Controls, APathThatIsTooLongShowsItsEndAndAllOfItInATip) {
    auto& window = open<Labelled>();
    auto& label = widget(window.path);
    std::string middle;
    for (int folder = 0; folder < 40; folder++) middle += "/folder" + std::to_string(folder);
    auto picture = [&](const std::string& start, const std::string& end) {
        window.path.Caption = start + middle + end;
        showFrame(window);
        return label.grab().toImage();
    };
    QImage whole = picture("/home", "/www");
    EXPECT_EQ(picture("/root", "/www"), whole);
    EXPECT_NE(picture("/root", "/web"), whole);
    EXPECT_EQ(tipAt(label, {5, 5}).join(QString()).toStdString(), window.path.Caption.get());
    window.path.Caption = std::string("/short");
    showFrame(window);
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

TEST_F(Controls, AWheelTurnsWhileItIsVisible) {
    auto& wheel = widget(form.wheel);
    QImage start = wheel.grab().toImage();
    waitFor([&] { return wheel.grab().toImage() != start; });
}

}  // namespace bracken::test
