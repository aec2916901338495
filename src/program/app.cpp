#include "program/app.h"

#include <memory>

#include "framework/dialogs/dialogs.h"
#include "framework/files/special_folder.h"
#include "framework/platform/platform.h"
#include "program/menu_bar1.h"

namespace bracken {

App::App(std::function<Ref<Database>()> makeDatabase) : makeDatabase_(std::move(makeDatabase)) {
    MenuBar = std::make_unique<MenuBar1>();
}

class App& App() {
    return dynamic_cast<class App&>(*Application::current());
}

void App::Event_Open() {
    Ref<FolderItem> file = SpecialFolder::Preferences()->Child("com.tallowmere.brackenlens.plist");
    // They hold the password.
    file->removeLeftOvers();
    prefs = make<plist>(file, nullptr);
    db = makeDatabase_();
}

void App::Event_EnableMenuItems() {
    Preferences()->Enable();
}

bool App::CheckError() {
    if (!db->Error) return false;
    MsgBox(db->ErrorMessage, BoxCode::error);
    return true;
}

}  // namespace bracken
