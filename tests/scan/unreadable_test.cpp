#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <set>

#include "tests/scan/failing_system.h"
#include "tests/scan/results.h"

namespace bracken {
namespace {

namespace fs = std::filesystem;

const std::string ended =
    "The application has to end: an error occurred that nothing handles.\n\nNilObjectException";

// Folders that can't be seen whole.
class Unreadable : public testing::Test, protected test::Results {
  protected:
    Unreadable() {
        setExtensions("php");
        folder.write("in/1.php", std::string(9000, '.') + "users");
        folder.write("in/b/2.php", "users");
        folder.write("out/3.php", "users");
        folder.write("out/4.php", "users");
        fs::permissions(folder.write("in/filtered.js", "users"), fs::perms::none);
        chmod(folder.path().c_str(), 0755);
        fs::create_symlink("../out", folder.path("in/c"));
        fs::create_symlink("../out/4.php", folder.path("in/d.php"));
    }
    // Runs to the end as an ordinary user, since root may read everything, and gives what the box
    // says.
    std::string run() {
        winResults().lstResults.DeleteAllRows();
        std::string text;
        program.platform.expectAnyBox(text);
        const uid_t user = geteuid();
        if (user == 0) {
            EXPECT_EQ(seteuid(65534), 0);
        }
        go({"users"}, GetFolderItem(folder.path("in"), 0));
        finish();
        EXPECT_EQ(seteuid(user), 0);
        return text;
    }
    // Whether that says all, or names the path at which it ends.
    void expectWholeOrNamed(const std::string& box) {
        if (box == "Finished")
            EXPECT_EQ(column(1), "1.php,2.php,3.php,4.php,d.php,|");
        else
            EXPECT_TRUE(box.starts_with(ended + ": " + folder.path("in"))) << box;
    }
};

TEST_F(Unreadable, EveryCallThatFailsEndsTheRunOrChangesNothing) {
    struct Case {
        std::optional<bool> byRun;
        bool lasting;
        bool untyped;
        bool cold;
    };
    std::set<std::string> failed;
    std::set<std::string> called;
    for (const Case& one : {Case{true, true, false, false}, Case{false, false, true, false},
                            Case{false, false, true, true}, Case{{}, true, true, true}}) {
        for (const char* call : {"opendir", "readdir", "stat", "fstat", "fstatat", "fstatfs",
                                 "open", "openat", "openat2", "preadv2", "read"}) {
            for (int nth = 1, made = nth; made >= nth; nth++) {
                test::FailingSystem system{call,        folder.path(), one.byRun, one.lasting,
                                           one.untyped, one.cold,      nth};
                system.arm();
                const std::string box = run();
                made = system.made;
                SCOPED_TRACE(call + std::to_string(nth) + (one.lasting ? " and on" : ""));
                expectWholeOrNamed(box);
                if (one.byRun == false) {
                    EXPECT_EQ(box, "Finished");
                }
                if (box != "Finished") failed.insert(call);
                if (made > 0) called.insert(call);
            }
        }
    }
    EXPECT_EQ(failed, (std::set<std::string>{"fstat", "fstatat", "openat", "opendir", "read",
                                             "readdir", "stat"}));
    EXPECT_TRUE(called.contains("openat2") && called.contains("preadv2"));
}

TEST_F(Unreadable, ReadingAheadGivesItsDescriptorsToTheRun) {
    // What is done once in a process, a sanitizer's look at a class too, may need a descriptor.
    EXPECT_EQ(run(), "Finished");
    struct rlimit before;
    getrlimit(RLIMIT_NOFILE, &before);
    const auto used = static_cast<rlim_t>(dup(0));
    close(static_cast<int>(used));
    for (rlim_t left = 0; left < 8; left++) {
        struct rlimit limit = {used + left, before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &limit);
        const std::string box = run();
        setrlimit(RLIMIT_NOFILE, &before);
        EXPECT_EQ(box, left > 0 ? "Finished"
                                : ended + ": " + folder.path("in") + ": Too many open files");
        expectWholeOrNamed(box);
    }
}

TEST_F(Unreadable, WhatIsRefusedIsNamed) {
    struct Case {
        const char* closed;
        const char* named;
    };
    for (const Case& one : {Case{"in/1.php", "in/1.php"}, Case{"in/b", "in/b"}, Case{"in", "in"},
                            Case{"out/4.php", "in/c/4.php"}, Case{"out", "in/c"}}) {
        const std::string closed = folder.path(one.closed);
        chmod(closed.c_str(), 0);
        EXPECT_EQ(run(), ended + ": " + folder.path(one.named) + ": Permission denied");
        EXPECT_EQ(program.platform.abortStatus, 1);
        EXPECT_NE(winResults().lblProgress.Caption.get(), "Finished");
        chmod(closed.c_str(), 0755);
    }
    EXPECT_EQ(run(), "Finished") << "with a file in it that the filter keeps out";
}

TEST_F(Unreadable, APathOverTheSystemsLimitIsNamed) {
    std::string path = folder.path("in");
    const std::string name(200, 'x');
    for (; path.size() < 4096; path += '/' + name) {
        fs::create_directory(path);
        fs::current_path(path);
    }
    fs::create_directory(name);
    fs::current_path("/");
    EXPECT_EQ(run(), ended + ": " + path + ": File name too long");
}

TEST_F(Unreadable, PackagesThatLinkToEachOtherAreEnteredByALinkOnce) {
    fs::remove_all(folder.path("in"));
    const std::string packages = "abcdefghijkl";
    std::string names;
    for (const char package : packages) {
        const std::string in = std::string("in/") + package + '/';
        folder.write(in + package + ".php", "users");
        folder.makeFolder(in + "modules");
        for (const char other : packages)
            fs::create_symlink(std::string("../../") + other, folder.path(in + "modules/" + other));
        names += std::string(1, package) + ".php,";
    }
    EXPECT_EQ(run(), "Finished");
    EXPECT_EQ(column(1), names + "|");
    EXPECT_EQ(winResults().LongProcessThread1->filesProcessed, 23) << "11 of them by links first";
    EXPECT_TRUE(
        column(2).ends_with("/in/a/modules/b/modules/c/modules/d/modules/e/modules/f/modules/"
                            "g/modules/h/modules/i/modules/j/modules/k/modules/l/l.php,|"));
}

}  // namespace
}  // namespace bracken
