#include "platform/qt/web_browser.h"

#include <filesystem>

#include "tests/platform_qt/qt_test.h"
#include "tests/support/temp_folder.h"

namespace bracken::test {

class WebBrowser : public QtTest {};

TEST_F(WebBrowser, IsTheDefaultForSecureAddresses) {
    const TempFolder folder;
    folder.write("record", "#!/bin/sh\nprintf '%s' \"$*\" >" + folder.path("new") + " && mv " +
                               folder.path("new") + " " + folder.path("called") + "\n");
    std::filesystem::permissions(folder.path("record"), std::filesystem::perms::owner_all);
    folder.write("data/applications/a.desktop", "[Desktop Entry]\nType=Application\nName=a\nExec=" +
                                                    folder.path("record") + " --open %u\n");
    folder.write("config/mimeapps.list",
                 "[Default Applications]\ntext/html=no.desktop;\n"
                 "x-scheme-handler/https=gone.desktop;a.desktop;\n");
    // Looked at once in a process.
    setenv("XDG_CONFIG_HOME", folder.path("config").c_str(), 1);
    setenv("XDG_DATA_HOME", folder.path("data").c_str(), 1);
    openInBrowser("/tmp/a b.html");
    waitFor([&] { return std::filesystem::exists(folder.path("called")); });
    EXPECT_EQ(folder.read("called"), "--open /tmp/a b.html");
}

}  // namespace bracken::test
