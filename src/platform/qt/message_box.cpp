#include "platform/qt/message_box.h"

#include <QApplication>
#include <QGridLayout>
#include <QStringList>

#include "framework/platform/platform.h"
#include "platform/qt/qt_text.h"

namespace bracken {

namespace {

// UTF-16 units and lines that the box itself shows; a longer text goes to its details, which
// scroll.
constexpr int shownLimit = 1200;
constexpr int linesLimit = 20;
// UTF-16 units that the details show.
constexpr int detailsLimit = 1'000'000;
// Longer words are broken so that the box can wrap them.
constexpr int longestWord = 60;
// Pixels of a title bar beside its title.
constexpr int titleButtons = 150;

QString start(const QString& text) {
    QStringList lines = text.left(shownLimit).split(u'\n');
    return QStringList(lines.mid(0, linesLimit)).join(u'\n');
}

QString breakLongWords(const QString& text) {
    QString broken;
    int word = 0;
    for (QChar sign : text) {
        word = sign.isSpace() ? 0 : word + 1;
        if (word > longestWord && !sign.isLowSurrogate()) {
            broken += QChar(u'\u200b');
            word = 1;
        }
        broken += sign;
    }
    return broken;
}

QMessageBox::Icon iconOf(int code) {
    if (code == BoxCode::yesNoQuestion) return QMessageBox::Question;
    return code == BoxCode::error ? QMessageBox::Critical : QMessageBox::Information;
}

}  // namespace

MessageBox::MessageBox(const std::string& text, int code, const std::string& title, QWidget* above)
    : QMessageBox(above), code_(code) {
    bool question = code == BoxCode::yesNoQuestion;
    setIcon(iconOf(code));
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setWindowTitle(title.empty() ? QStringLiteral("Bracken Lens")
                                 : withoutLineControls(toQString(title)));
    QString whole = withoutControls(toQStringStart(text, detailsLimit));
    QString visible = start(whole);
    bool all = visible.size() == whole.size();
    setText(breakLongWords(visible) + (all ? QString() : QStringLiteral("\u2026")));
    if (!all) setDetailedText(whole);
    setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No
                                : QMessageBox::StandardButtons(QMessageBox::Ok));
    setDefaultButton(question ? QMessageBox::No : QMessageBox::Ok);
    setEscapeButton(question ? QMessageBox::No : QMessageBox::Ok);
    makeRoomForTitle();
}

// The box takes its width from its content.
void MessageBox::makeRoomForTitle() {
    auto* grid = qobject_cast<QGridLayout*>(layout());
    QFont bold = font();
    bold.setBold(true);
    int width = QFontMetrics(bold).horizontalAdvance(windowTitle()) + titleButtons;
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

int MessageBox::ask() {
    int button = exec();
    if (code_ != BoxCode::yesNoQuestion) return BoxCode::okPressed;
    return button == QMessageBox::Yes ? BoxCode::yesPressed : BoxCode::noPressed;
}

}  // namespace bracken
