#include <QPlainTextEdit>
#include <QTextBlock>
#include <random>

#include "framework/controls/edit_field.h"
#include "framework/text/text.h"
#include "platform/qt/display_text.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

namespace {

class Reader : public Window {
  public:
    EditField field{*this, "field"};

  protected:
    void Layout() override {
        Width = 500;
        Height = 400;
    }
    void CreateControls() override {
        field.place(10, 10, 400, 300);
        field.MultiLine = field.Styled = field.ScrollBarVertical = true;
        field.TextSize = 10;
    }
};

class TextArea : public QtTest {
  protected:
    // Puts the text in and marks every occurrence of the name.
    void show(const std::string& text, const std::string& name) {
        EditField& field = reader.field;
        field.Text = text;
        for (int64_t at = InStr(0, text, name); at > 0; at = InStr(at + 1, text, name)) {
            field.SelStart = static_cast<int>(at - 1);
            field.SelLength = static_cast<int>(name.size());
            field.SelBold = true;
            field.SelOutline = true;
            field.SelTextColor = RGB(255, 0, 0);
        }
        showFrame();
    }

    // The shown text, marked pieces between brackets.
    QString marked() {
        QString result;
        for (QTextBlock block = edit.document()->begin(); block.isValid(); block = block.next()) {
            if (block.blockNumber() > 0) result += u'\n';
            for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
                QTextCharFormat format = piece.fragment().charFormat();
                bool isMarked = format.fontWeight() == QFont::Bold;
                if (isMarked) {
                    EXPECT_EQ(format.textOutline().color(), QColor(255, 0, 0));
                    EXPECT_EQ(format.foreground().color(), edit.palette().color(QPalette::Base));
                }
                QString text = piece.fragment().text();
                result += isMarked ? u'[' + text + u']' : text;
            }
        }
        return result;
    }

    Reader& reader = open<Reader>();
    QPlainTextEdit& edit = widget<QPlainTextEdit>(reader.field);
};

TEST_F(TextArea, MarksStandExactlyOnTheirText) {
    struct Case {
        std::string text, name;
        QString marked;
    };
    const Case cases[] = {
        {"from user\nwhere USER", "user", QStringLiteral("from [user]\nwhere [USER]")},
        {"\r\n\r\nuser\r\nx user\ruser", "user", QStringLiteral("\n\n[user]\nx [user]\n[user]")},
        {std::string("\0\0 user \x01", 9), "user", QStringLiteral("\u2400\u2400 [user] \u2401")},
        {"caf\xe9 user caf\xe9", "caf\xe9", QStringLiteral("[caf\u00e9] user [caf\u00e9]")},
        {"\xd1\x8f \xd1\x8e\xd0\xb7\xd0\xb5\xd1\x80.", "\xd1\x8e\xd0\xb7\xd0\xb5\xd1\x80",
         QStringLiteral("\u044f [\u044e\u0437\u0435\u0440].")},
        {"\xf0\x9f\x98\x80user\xe2\x80\xa9user", "user",
         QStringLiteral("\U0001F600[user]\n[user]")},
        {"\xef\xbb\xbfuser", "user", QStringLiteral("\ufeff[user]")},
        {"plain", "user", QStringLiteral("plain")},
        {"", "user", QString()},
    };
    for (const Case& c : cases) {
        show(c.text, c.name);
        EXPECT_EQ(marked().toStdString(), c.marked.toStdString());
    }
}

TEST_F(TextArea, TheLastMarkStaysSelected) {
    show("\xc3\xa9 user user.", "user");
    EXPECT_EQ(edit.textCursor().selectedText(), QStringLiteral("user"));
    EXPECT_EQ(edit.textCursor().selectionStart(), 7);
}

TEST_F(TextArea, ANewTextHasNoMarksAndNothingToUndo) {
    show("the user", "user");
    reader.field.Text = "the user";
    showFrame();
    EXPECT_EQ(marked(), QStringLiteral("the user"));
    EXPECT_FALSE(edit.document()->isUndoAvailable());
    QTest::keyClicks(&edit, QStringLiteral("my "));
    EXPECT_EQ(edit.toPlainText(), QStringLiteral("my the user"));
    EXPECT_EQ(reader.field.Text.get(), "the user") << "edits stay in the view";
}

TEST_F(TextArea, ALineThatIsTooLongIsBrokenForDisplay) {
    std::string text(12000, 'x');
    text.replace(4998, 4, "user");
    text.replace(11000, 4, "user");
    show(text, "user");
    QString shownText = marked();
    EXPECT_EQ(edit.document()->blockCount(), 3);
    EXPECT_EQ(shownText.count(QStringLiteral("[us]\n[er]")), 1) << "a mark over the break";
    EXPECT_EQ(shownText.count(QStringLiteral("[user]")), 1);
    EXPECT_EQ(shownText.remove(u'\n').remove(u'[').remove(u']').toStdString(), text);
}

TEST(DisplayTextPositions, OfEachOccurrenceInALongTextAreExact) {
    std::mt19937 random(testing::UnitTest::GetInstance()->random_seed());
    std::string text;
    while (text.size() < 2000000) {
        const std::string pieces[] = {std::string(random() % 99, 'x'),
                                      "user",
                                      "\n",
                                      "\r\n",
                                      "\xd1\x8e\xf0\x9f\x98\x80",
                                      std::string(2, '\0')};
        text += pieces[random() % 6 == 0 ? random() % 6 : random() % 2];
    }
    for (const char* end : {"", "\xff"}) {  // UTF-8, and Latin-1
        text += end;
        DisplayText display(text);
        int count = 0;
        for (int64_t at = InStr(0, text, "user"); at > 0; at = InStr(at + 1, text, "user")) {
            int from = display.positionOf(at - 1);
            QString shown = display.text().mid(from, display.positionOf(at + 3) - from);
            ASSERT_EQ(shown.remove(u'\n').toStdString(), "user") << "byte " << at;
            ++count;
        }
        EXPECT_GT(count, 10000);
    }
}

TEST(DisplayTextPositions, AreFoundForwardsAndBackwards) {
    DisplayText text("a\xc3\xa9\r\n\xf0\x9f\x98\x80z");
    struct Case {
        int byte, unit;
    };
    for (const Case& c : {Case{0, 0},
                          {1, 1},
                          {3, 2},
                          {5, 3},
                          {9, 5},
                          {10, 6},
                          {99, 6},
                          {1, 1},
                          {2, 1},
                          {7, 3},
                          {4, 2}})
        EXPECT_EQ(text.positionOf(c.byte), c.unit) << c.byte;
}

}  // namespace
}  // namespace bracken::test
