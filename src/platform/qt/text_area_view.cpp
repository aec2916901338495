#include "platform/qt/text_area_view.h"

#include <QTextCursor>

namespace bracken {

namespace {

// A pale tint of the ink.
QColor groundFor(const QColor& ink) {
    auto pale = [](int part) { return 255 - (255 - part) / 6; };
    return {pale(ink.red()), pale(ink.green()), pale(ink.blue())};
}

// An outline is drawn as a ground of its own: letters with a line around them can't be read at this
// size. Both colours are set, so that a mark looks the same on a light and on a dark palette.
QTextCharFormat formatOf(const TextStyle& style) {
    QTextCharFormat format;
    if (style.bold) format.setFontWeight(QFont::Bold);
    QColor ink(style.color.red, style.color.green, style.color.blue);
    if (style.outline) format.setBackground(groundFor(ink));
    if (style.outline || style.coloured) format.setForeground(ink.darker(150));
    return format;
}

}  // namespace

TextAreaView::TextAreaView(EditField& model, QWidget* parent)
    : QPlainTextEdit(parent), ControlView(model, *this), model_(model) {
    setTabChangesFocus(true);
    auto bar = [](bool wanted) { return wanted ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff; };
    setVerticalScrollBarPolicy(bar(model.ScrollBarVertical));
    setHorizontalScrollBarPolicy(bar(model.ScrollBarHorizontal));
    if (model.ScrollBarHorizontal) setLineWrapMode(QPlainTextEdit::NoWrap);
    if (model.TextSize == 0) return;
    QFont sized = font();
    sized.setPointSize(model.TextSize);
    setFont(sized);
}

void TextAreaView::sync() {
    if (shownText_ == model_.textVersion() && shownStyles_ == model_.styleVersion()) return;
    shownText_ = model_.textVersion();
    shownStyles_ = model_.styleVersion();
    showText();
}

// All at once and with nothing to undo: text, then styles, in one pass over both.
void TextAreaView::showText() {
    DisplayText display(model_.Text.get());
    document()->setUndoRedoEnabled(false);
    // A new text takes on the looks of where the cursor stands.
    setTextCursor(QTextCursor(document()));
    setCurrentCharFormat(QTextCharFormat());
    setPlainText(display.text());
    showStyles(display);
    showSelection(display);
    document()->setUndoRedoEnabled(true);
}

void TextAreaView::showStyles(DisplayText& display) {
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (const StyleRun& run : model_.styles().runs()) {
        cursor.setPosition(display.positionOf(run.from));
        cursor.setPosition(display.positionOf(run.end()), QTextCursor::KeepAnchor);
        cursor.setCharFormat(formatOf(run.style));
    }
    cursor.endEditBlock();
}

void TextAreaView::showSelection(DisplayText& display) {
    QTextCursor cursor(document());
    cursor.setPosition(display.positionOf(model_.SelStart));
    cursor.setPosition(display.positionOf(int64_t{model_.SelStart} + model_.SelLength),
                       QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

}  // namespace bracken
