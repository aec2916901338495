#include <QDir>
#include <QGuiApplication>
#include <QIcon>

#include "platform/mysql/mysql_database.h"
#include "platform/qt/qt_platform.h"
#include "program/app.h"
#include "program/login/win_login.h"

namespace {

// The connection object of the process.
bracken::Ref<bracken::Database> makeDatabase() {
    return bracken::make<bracken::MySQLDatabase>();
}

// The icon of windows, and the entry of the desktop's menu that they belong to.
void nameToDesktop() {
    QIcon icon;
    for (const QFileInfo& size : QDir(QStringLiteral(":/icons")).entryInfoList())
        icon.addFile(size.filePath());
    QGuiApplication::setWindowIcon(icon);
    QGuiApplication::setDesktopFileName(QStringLiteral("bracken-lens"));
}

}  // namespace

int main(int argc, char** argv) {
    bracken::MySQLDatabase::prepareLibrary();
    class bracken::App app(makeDatabase);
    return bracken::runApplication(argc, argv, [&app] {
        nameToDesktop();
        app.addMenuHandler("Preferences", [&app] { return app._Preferences_Action(); });
        app.Event_Open();
        bracken::winLogin();
    });
}
