#include "platform/qt/web_browser.h"

#include <filesystem>
#include <map>

#include "framework/text/text.h"
#include "tests/platform_qt/qt_test.h"
#include "tests/support/temp_folder.h"

namespace bracken::test {

std::string entry(const std::string& exec, const std::string& more = "") {
    return "[Other]\nExec=wrong\n[Desktop Entry]\n" + more + "Exec=RECORD " + exec +
           "\n[Action]\nExec=wrong\n";
}

const std::string list = "[Default Applications]\ntext/html=no.desktop;\nx-scheme-handler/https=";
const std::string cache = "[MIME Cache]\nx-scheme-handler/https=b.desktop;\n";

struct BrowserCase {
    // By their paths below the test's folder.
    std::map<std::string, std::string> files;
    // What the browser is called with.
    std::string words;
};

const BrowserCase cases[] = {
    // The user's choice goes before that of the system for one desktop.
    {{{"config/mimeapps.list", list + "a.desktop;\n"},
      {"system/some-mimeapps.list", list + "b.desktop;\n"},
      {"data/applications/mimeinfo.cache", cache},
      {"data/applications/a.desktop", entry("a %u --x%%y %i")},
      {"data/applications/b.desktop", entry("b %u")}},
     "a file:///tmp/a%20b.html --x%y"},
    // What isn't there or needs a terminal is passed over.
    {{{"system/some-mimeapps.list", list + "gone.desktop;term.desktop;c-d.desktop\n"},
      {"system/mimeapps.list", list + "b.desktop;\n"},
      {"data/applications/b.desktop", entry("b %u")},
      {"data/applications/term.desktop", entry("term %u", "Terminal=true\n")},
      {"data/applications/c/d.desktop", entry("\"c d\" %F")}},
     "c d /tmp/a b.html"},
    {{{"data/applications/mimeinfo.cache", cache},
      {"data/applications/b.desktop", entry("b --open=%f %i")}},
     "b --open=/tmp/a b.html"}};

class WebBrowser : public QtTest {};

TEST_F(WebBrowser, IsLookedUpInTheDesktopsLists) {
    qputenv("XDG_CURRENT_DESKTOP", "Some");
    for (const BrowserCase& one : cases) {
        SCOPED_TRACE(one.words);
        TempFolder folder;
        folder.write("record", "#!/bin/sh\nprintf '%s' \"$*\" >" + folder.path("new") + " && mv " +
                                   folder.path("new") + " " + folder.path("called") + "\n");
        std::filesystem::permissions(folder.path("record"), std::filesystem::perms::owner_all);
        for (auto& [name, text] : one.files)
            folder.write(name, ReplaceAll(text, "RECORD", folder.path("record")));
        setenv("XDG_CONFIG_HOME", folder.path("config").c_str(), 1);
        setenv("XDG_CONFIG_DIRS", folder.path("system").c_str(), 1);
        setenv("XDG_DATA_HOME", folder.path("data").c_str(), 1);
        setenv("XDG_DATA_DIRS", folder.path("none").c_str(), 1);
        openInBrowser(QStringLiteral("/tmp/a b.html"));
        waitFor([&] { return std::filesystem::exists(folder.path("called")); });
        EXPECT_EQ(folder.read("called"), one.words);
    }
}

}  // namespace bracken::test
