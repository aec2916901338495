#include "framework/files/shell.h"
#include "framework/files/special_folder.h"
#include "tests/framework_files/files_test.h"
#include "tests/framework_files/variable.h"

namespace bracken::test {
namespace {

namespace fs = std::filesystem;

class Places : public FilesTest {};

TEST_F(Places, FollowTheVariablesAndElseTheHome) {
    const std::string home = folder.path("some/home");
    const Variable setHome("HOME", home);
    const std::string set = folder.path("set/place");
    const std::tuple<std::optional<std::string>, std::string, std::string> cases[] = {
        {std::nullopt, home + "/.config", home + "/.local/share"},
        {"", home + "/.config", home + "/.local/share"},
        {"not/absolute", home + "/.config", home + "/.local/share"},
        {set + "/", set, set}};
    for (const auto& [value, preferences, data] : cases) {
        const Variable setConfig("XDG_CONFIG_HOME", value);
        const Variable setData("XDG_DATA_HOME", value);
        EXPECT_EQ(SpecialFolder::Preferences()->AbsolutePath(), preferences);
        EXPECT_EQ(SpecialFolder::ApplicationData()->AbsolutePath(), data);
        for (const std::string& made : {preferences, data}) EXPECT_EQ(modeOf(made), 0700U) << made;
    }
}

TEST_F(Places, AreNilWithNoHome) {
    const Variable home("HOME", std::nullopt);
    const Variable config("XDG_CONFIG_HOME", std::nullopt);
    const Variable data("XDG_DATA_HOME", std::nullopt);
    EXPECT_EQ(SpecialFolder::Preferences(), nullptr);
    EXPECT_EQ(SpecialFolder::ApplicationData(), nullptr);
    EXPECT_EQ(SpecialFolder::Documents(), nullptr);
    EXPECT_FALSE(SpecialFolder::keepsPrivate("/file"));
}

TEST_F(Places, DocumentsAreWhereTheDesktopNotedThem) {
    const Variable home("HOME", folder.path());
    const Variable config("XDG_CONFIG_HOME", std::nullopt);
    const std::string papers = folder.makeFolder("Papers of \"me\"");
    for (const auto& [notes, documents] :
         {std::pair("", folder.path()),
          {"# XDG_DOCUMENTS_DIR=\"/tmp\"\nXDG_MUSIC_DIR=\"/tmp\"\n", folder.path()},
          {"XDG_DOCUMENTS_DIR=\"$HOME/Papers of \\\"me\\\"\"\n", papers},
          {"XDG_DOCUMENTS_DIR=\"/tmp\"", "/tmp"},
          {"XDG_DOCUMENTS_DIR=\"$HOME/\"\n", folder.path()},
          {"XDG_DOCUMENTS_DIR=\"$HOME/None\"\n", folder.path()}}) {
        folder.write(".config/user-dirs.dirs", notes);
        EXPECT_EQ(SpecialFolder::Documents()->AbsolutePath(), documents) << notes;
    }
    fs::remove(folder.path(".config/user-dirs.dirs"));
    EXPECT_EQ(SpecialFolder::Documents()->AbsolutePath(), folder.path());
}

TEST_F(Places, AShellWaitsAndFindsCommandsBesideTheProgramFirst) {
    const fs::path program = fs::canonical("/proc/self/exe");
    const std::string name = program.filename();
    fs::permissions(folder.write("elsewhere/" + name, "#!/bin/sh\n"), fs::perms::owner_all);
    const Variable path("PATH", folder.path("elsewhere") + ":" + std::getenv("PATH"));
    const auto quoted = [&](const char* file) { return item(folder.path(file))->ShellPath(); };
    Shell().Execute("[ \"$(command -v " + name + ")\" -ef " + item(program)->ShellPath() +
                    " ] && printf %s \"$PATH\" > " + quoted("it's \"out\""));
    EXPECT_TRUE(folder.read("it's \"out\"").ends_with(":" + std::string(std::getenv("PATH"))));
    Shell().Execute("exit 3");
    Shell().Execute("no-such-command-at-all 2> /dev/null");

    // Once more, from a folder whose path can't be a piece of another.
    if (program.string().find(':') != std::string::npos) return;
    fs::copy_file(program, fs::path(folder.makeFolder("a:b")) / name);
    Shell().Execute(quoted("a:b") + "/" + name + " --gtest_filter=*AShell* > /dev/null && touch " +
                    quoted("passed"));
    EXPECT_TRUE(fs::exists(folder.path("passed")));
}

}  // namespace
}  // namespace bracken::test
