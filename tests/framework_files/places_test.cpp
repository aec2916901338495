#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "framework/files/shell.h"
#include "framework/files/special_folder.h"
#include "tests/framework_files/variable.h"
#include "tests/support/temp_folder.h"

namespace bracken {
namespace {

using test::TempFolder;
using test::Variable;

namespace fs = std::filesystem;

TEST(SpecialFolder, FollowsTheVariablesAndElseTheHome) {
    const TempFolder folder;
    const std::string home = folder.path("some/home");
    const Variable setHome("HOME", home);
    struct Case {
        std::optional<std::string> value;
        std::string preferences;
        std::string data;
    };
    const std::string set = folder.path("set/place");
    for (const Case& c : {Case{std::nullopt, home + "/.config", home + "/.local/share"},
                          Case{"", home + "/.config", home + "/.local/share"},
                          Case{"not/absolute", home + "/.config", home + "/.local/share"},
                          Case{set + "/", set, set}}) {
        const Variable config("XDG_CONFIG_HOME", c.value);
        const Variable data("XDG_DATA_HOME", c.value);
        EXPECT_EQ(SpecialFolder::Preferences()->AbsolutePath(), c.preferences);
        EXPECT_EQ(SpecialFolder::ApplicationData()->AbsolutePath(), c.data);
        for (const std::string& made : {c.preferences, c.data})
            EXPECT_EQ(fs::status(made).permissions(), fs::perms::owner_all) << made;
    }
}

TEST(SpecialFolder, IsNilWithNoHome) {
    const Variable home("HOME", std::nullopt);
    const Variable config("XDG_CONFIG_HOME", std::nullopt);
    const Variable data("XDG_DATA_HOME", std::nullopt);
    EXPECT_EQ(SpecialFolder::Preferences(), nullptr);
    EXPECT_EQ(SpecialFolder::ApplicationData(), nullptr);
    EXPECT_EQ(SpecialFolder::Documents(), nullptr);
    EXPECT_FALSE(SpecialFolder::keepsPrivate("/file"));
}

TEST(SpecialFolder, DocumentsAreWhereTheDesktopNotedThem) {
    const TempFolder folder;
    const Variable home("HOME", folder.path());
    const Variable config("XDG_CONFIG_HOME", std::nullopt);
    folder.makeFolder("Papers of \"me\"");
    struct Case {
        std::string notes;
        std::string documents;
    };
    const std::string papers = folder.path("Papers of \"me\"");
    for (const Case& c : {
             Case{"", folder.path()},
             Case{"# XDG_DOCUMENTS_DIR=\"/tmp\"\nXDG_MUSIC_DIR=\"/tmp\"\n", folder.path()},
             Case{"XDG_DOCUMENTS_DIR=\"$HOME/Papers of \\\"me\\\"\"\n", papers},
             Case{"XDG_DOCUMENTS_DIR=\"/tmp\"", "/tmp"},
             Case{"XDG_DOCUMENTS_DIR=\"$HOME/\"\n", folder.path()},
             Case{"XDG_DOCUMENTS_DIR=\"$HOME/None\"\n", folder.path()},
         }) {
        folder.write(".config/user-dirs.dirs", c.notes);
        EXPECT_EQ(SpecialFolder::Documents()->AbsolutePath(), c.documents) << c.notes;
    }
    fs::remove(folder.path(".config/user-dirs.dirs"));
    EXPECT_EQ(SpecialFolder::Documents()->AbsolutePath(), folder.path());
}

TEST(Shell, WaitsAndFindsCommandsBesideTheProgramFirst) {
    const TempFolder folder;
    const fs::path program = fs::canonical("/proc/self/exe");
    const std::string name = program.filename();
    fs::permissions(folder.write("elsewhere/" + name, "#!/bin/sh\n"), fs::perms::owner_all);
    const Variable path("PATH", folder.path("elsewhere") + ":" + std::getenv("PATH"));
    const auto quoted = [&](const char* file) { return FolderItem(folder.path(file)).ShellPath(); };
    Shell().Execute("[ \"$(command -v " + name + ")\" -ef " + FolderItem(program).ShellPath() +
                    " ] && printf %s \"$PATH\" > " + quoted("it's \"out\""));
    EXPECT_TRUE(folder.read("it's \"out\"").ends_with(":" + std::string(std::getenv("PATH"))));
    Shell().Execute("exit 3");
    Shell().Execute("no-such-command-at-all 2> /dev/null");

    // Once more, from a folder whose path can't be a piece of another.
    if (program.string().find(':') != std::string::npos) return;
    fs::copy_file(program, fs::path(folder.makeFolder("a:b")) / name);
    Shell().Execute(quoted("a:b") + "/" + name + " --gtest_filter=Shell.* > /dev/null && touch " +
                    quoted("passed"));
    EXPECT_TRUE(fs::exists(folder.path("passed")));
}

}  // namespace
}  // namespace bracken
