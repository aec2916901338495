#include <QPlainTextEdit>
#include <QTextBlock>

#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

class Reader : public Window {
  public:
    EditField field{*this, "field"};

  protected:
    void Layout() override { Width = Height = 400; }
    void CreateControls() override {
        field.place(10, 10, 300, 300);
        field.MultiLine = field.Styled = true;
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
        showFrame(reader);
    }

    // The shown text, marked pieces between brackets.
    std::string marked() {
        QString result;
        for (QTextBlock block = edit.document()->begin(); block.isValid(); block = block.next()) {
            if (block.blockNumber() > 0) result += u'\n';
            for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
                QTextCharFormat format = piece.fragment().charFormat();
                bool isMarked = format.fontWeight() == QFont::Bold;
                if (isMarked) {
                    EXPECT_EQ(format.textOutline().style(), Qt::NoPen) << "no hollow letters";
                    EXPECT_NE(format.background(), format.foreground());
                }
                QString text = piece.fragment().text();
                result += isMarked ? u'[' + text + u']' : text;
            }
        }
        return result.toStdString();
    }

    Reader& reader = open<Reader>();
    QPlainTextEdit& edit = widget<QPlainTextEdit>(reader.field);
};

TEST_F(TextArea, MarksStandExactlyOnTheirText) {
    const std::array<std::string, 3> cases[] = {
        {"\r\n\r\nUSER\r\nx user\ruser", "user", "\n\n[USER]\nx [user]\n[user]"},
        {std::string("\0 user \x01", 8), "user", "\u2400 [user] \u2401"},
        {"caf\xe9 user caf\xe9", "caf\xe9", "[caf\u00e9] user [caf\u00e9]"},
        {"\u044f \u044e\u0437.", "\u044e\u0437", "\u044f [\u044e\u0437]."},
        {"\U0001F600user\u2029user", "user", "\U0001F600[user]\n[user]"},
        // A line that is too long for the widget is broken.
        {std::string(4998, 'x') + "user user", "user",
         std::string(4998, 'x') + "[us]\n[er] [user]"},
    };
    for (auto& [text, name, wanted] : cases) {
        show(text, name);
        EXPECT_EQ(marked(), wanted);
    }
}

TEST_F(TextArea, ANewTextHasNoMarks) {
    show("\u00e9 user the user.", "user");
    EXPECT_EQ(edit.textCursor().selectionStart(), 11) << "the last mark";
    reader.field.Text = "the user";
    showFrame(reader);
    EXPECT_EQ(marked(), "the user");
    QTest::keyClicks(&edit, QStringLiteral("my "));
    EXPECT_EQ(edit.toPlainText(), QStringLiteral("my the user"));
    EXPECT_EQ(reader.field.Text.get(), "the user") << "edits stay in the view";
}

}  // namespace bracken::test
