#include "platform/mysql/mysql_database.h"
#include "platform/qt/qt_platform.h"
#include "program/app.h"
#include "program/login/win_login.h"

namespace {

// The connection object of the process.
bracken::Ref<bracken::Database> makeDatabase() {
    return bracken::make<bracken::MySQLDatabase>();
}

}  // namespace

int main(int argc, char** argv) {
    bracken::MySQLDatabase::prepareLibrary();
    class bracken::App app(makeDatabase);
    return bracken::runApplication(argc, argv, [&app] {
        app.addMenuHandler("Preferences", [&app] { return app._Preferences_Action(); });
        app.Event_Open();
        bracken::winLogin();
    });
}
