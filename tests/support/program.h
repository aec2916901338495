#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>

#include "program/app.h"
#include "tests/support/fake_database.h"
#include "tests/support/fake_platform.h"

namespace bracken::test {

// The program as main() starts it, short of its first window, with no settings stored unless given.
class Program {
  public:
    explicit Program(const std::string& settingsBody = "") {
        std::filesystem::remove(settingsFile());
        if (!settingsBody.empty())
            std::ofstream(settingsFile())
                << "<?xml version=\"1.0\"?>\n<plist version=\"1.0\">\n<dict>\n"
                << settingsBody << "</dict>\n</plist>\n";
        app.Event_Open();
    }

    static std::string settingsFile() {
        return std::string(getenv("XDG_CONFIG_HOME")) + "/com.tallowmere.brackenlens.plist";
    }
    // One setting as it stands on the disk; "none" without the file, "missing" without the key, and
    // "" for what is no single value.
    static std::string saved(const std::string& key) {
        if (!std::filesystem::exists(settingsFile())) return "none";
        plist onDisk(GetFolderItem(settingsFile(), 0), nullptr);
        const std::string* value = onDisk.root->values.find(key);
        return value != nullptr ? *value : onDisk.root->Exists(key) ? "" : "missing";
    }

    FakePlatform platform;
    Ref<FakeDatabase> db = make<FakeDatabase>();
    class App app {
        [this] { return Ref<Database>(db); }
    };
};

}  // namespace bracken::test
