#include <sys/wait.h>

#include "framework/files/shell.h"
#include "framework/files/special_folder.h"
#include "tests/framework_files/files_test.h"
#include "tests/support/outcome.h"

namespace bracken::test {

namespace fs = std::filesystem;

class Places : public FilesTest {
  protected:
    const std::string home = folder.path("home");
    const Variable setHome{"HOME", home};
    const Variable noConfig{"XDG_CONFIG_HOME", std::nullopt};
    const Variable noData{"XDG_DATA_HOME", std::nullopt};
};

TEST_F(Places, FollowTheVariablesAndElseTheHome) {
    const std::string set = folder.path("set/place");
    for (const auto& value : {std::optional<std::string>(), {""}, {"not/absolute"}, {set + "/"}}) {
        const bool isSet = value == set + "/";
        const Variable setConfig("XDG_CONFIG_HOME", value);
        const Variable setData("XDG_DATA_HOME", value);
        const std::string preferences = SpecialFolder::Preferences()->AbsolutePath();
        EXPECT_EQ(preferences, isSet ? set : home + "/.config");
        EXPECT_EQ(SpecialFolder::ApplicationData()->AbsolutePath(),
                  isSet ? set : home + "/.local/share");
        EXPECT_EQ(modeOf(preferences), 0700U);
    }
    const Variable noHome("HOME", std::nullopt);
    const Variable data("XDG_DATA_HOME", std::nullopt);
    EXPECT_EQ(endOf([] { *SpecialFolder::Preferences(); }),
              "NilObjectException: There is no home folder.");
    EXPECT_EQ(SpecialFolder::ApplicationData(), nullptr);
    EXPECT_EQ(SpecialFolder::Documents(), nullptr);
    EXPECT_FALSE(SpecialFolder::keepsPrivate("/file"));
}

TEST_F(Places, DocumentsAreWhereTheDesktopNotedThem) {
    const std::string papers = folder.makeFolder("home/Papers of \"me\"");
    for (const auto& [notes, documents] :
         {std::pair("", home),
          {"# XDG_DOCUMENTS_DIR=\"/tmp\"\nXDG_MUSIC_DIR=\"/tmp\"\n", home},
          {"XDG_DOCUMENTS_DIR=\"$HOME/Papers of \\\"me\\\"\"\n", papers},
          {"XDG_DOCUMENTS_DIR=\"/tmp\"", "/tmp"},
          {"XDG_DOCUMENTS_DIR=\"$HOME/\"\n", home},
          {"XDG_DOCUMENTS_DIR=\"$HOME/None\"\n", home}}) {
        folder.write("home/.config/user-dirs.dirs", notes);
        EXPECT_EQ(SpecialFolder::Documents()->AbsolutePath(), documents) << notes;
    }
}

TEST_F(Places, AShellWaitsAndFindsCommandsBesideTheProgramFirst) {
    const fs::path program = fs::canonical("/proc/self/exe");
    const std::string name = program.filename();
    fs::permissions(folder.write("elsewhere/" + name, "#!/bin/sh\n"), fs::perms::owner_all);
    const Variable path("PATH", folder.path("elsewhere") + ":" + std::getenv("PATH"));
    Shell().Execute("[ \"$(command -v " + name + ")\" -ef " + item(program)->ShellPath() +
                    " ] && printf %s \"$PATH\" > " +
                    item(folder.path("it's \"out\""))->ShellPath());
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "nobody is left to wait for";
    EXPECT_TRUE(folder.read("it's \"out\"").ends_with(":" + std::string(std::getenv("PATH"))));
}

}  // namespace bracken::test
