#include "platform/qt/save_dialog.h"

#include <QApplication>
#include <QFile>

#include "platform/qt/qt_text.h"

namespace bracken {

namespace {

QString pathOf(const std::string& bytes) {
    return QFile::decodeName(QByteArray::fromStdString(bytes));
}

}  // namespace

SaveDialog::SaveDialog(const SaveQuestion& question)
    : QFileDialog(QApplication::activeWindow(), toQString(question.title)) {
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setLabelText(FileName, toQString(question.prompt));
    if (!question.filter.empty())
        setNameFilters({QStringLiteral("*.") + toQString(question.filter), QStringLiteral("*")});
    if (!question.folder.empty()) setDirectory(pathOf(question.folder));
    selectFile(pathOf(question.name));
}

std::string SaveDialog::ask() {
    if (exec() != QDialog::Accepted) return "";
    return QFile::encodeName(selectedFiles().value(0)).toStdString();
}

}  // namespace bracken
