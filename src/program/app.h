#pragma once

#include <functional>
#include <string>

#include "framework/containers/dictionary.h"
#include "framework/database/database.h"
#include "framework/ref.h"
#include "framework/windows/application.h"
#include "plist/plist.h"

namespace bracken {

// A kind of file that the desktop may know.
struct FileType {
    std::string Name;
    std::string Extensions;
    std::string MacType;
    std::string MacCreator;
};

// The program's file types.
struct FileTypes1 {
    FileType CSV{"CSV", "csv", "", ""};
};

// The one application object: owns what lives as long as the process. Made by main() ahead of every
// window; the keys of its settings, all at the root:
//
//   remember (boolean)            whether the login is kept
//   host, user, password          the login, as plain text
//   database                      of the last launched run
//   current folder                the folder to search, "None" for none
//   extensions                    of the files to search, "" for all
//   no warning (boolean)          the report opens without a question
//   Results, winViewScripts       frames of windows
class App : public Application {
  public:
    // `makeDatabase` makes the connection object, unconnected.
    explicit App(std::function<Ref<Database>()> makeDatabase);

    Ref<plist> prefs;
    Ref<Database> db;
    // Stays empty: results live in the results list.
    Dictionary<std::string> results;

    void Event_Open() override;
    void Event_EnableMenuItems() override;
    // Shows the preferences window; true, for handled.
    bool _Preferences_Action();
    // Shows the database's error if there is one; returns whether there was.
    bool CheckError();

  private:
    FileTypes1 fileTypes_;
    std::function<Ref<Database>()> makeDatabase_;
};

// The one instance.
class App& App();

}  // namespace bracken
