#include <sys/resource.h>
#include <unistd.h>

#include <climits>
#include <latch>
#include <set>

#include "scan/read_ahead.h"
#include "tests/scan/results.h"
#include "tests/support/system_calls.h"

namespace bracken::test {

namespace fs = std::filesystem;

// Lets one system call of reading fail while it lives, from the `nth` of those of that name on,
// counted from 1. Meanwhile a read gives a page at most, and with `cold` no file lies in memory.
struct FailingSystem {
    std::string call;
    // On the thread of a run, on others, or on any.
    std::optional<bool> byRun = {};
    bool cold = false;
    int nth = INT_MAX;
    // Ahead of each call, on its thread.
    std::function<void()> before = [] {};
    std::atomic<int> made{0};

    // What a thread has that executes no run.
    const std::atomic<bool>* const noRun = Thread::killedFlag();
    const SystemCalls calls{[this](std::string_view name) {
                                const bool onRun = Thread::killedFlag() != noRun;
                                const bool counts = name == call && onRun == byRun.value_or(onRun);
                                if (counts) before();
                                const bool isDue = counts && ++made >= nth;
                                errno = isDue ? EIO : EAGAIN;
                                return isDue || (cold && name == "openat2");
                            },
                            4096};
};

// Folders that can't be seen whole.
class Unreadable : public Results {
  protected:
    Unreadable() {
        App().prefs->root->SetString("extensions", "php");
        folder.write("in/1.php", std::string(9000, '.') + "users");
        folder.write("in/b/2.php", "users");
        folder.write("out/3.php", "users");
        folder.write("out/4.php", "users");
        chmod(folder.write("in/filtered.js", "users").c_str(), 0);
        chmod(folder.path().c_str(), 0755);
        fs::create_symlink("../out", folder.path("in/c"));
        fs::create_symlink("../out/4.php", folder.path("in/d.php"));
    }
    // Runs to the end as an ordinary user, since root may read everything, and gives what the box
    // says: that all has been seen, or else the path at which it ends.
    std::string run() {
        winResults().lstResults.DeleteAllRows();
        std::string box;
        program.platform.expectAnyBox(box);
        const uid_t user = geteuid();
        EXPECT_TRUE(user != 0 || seteuid(65534) == 0);
        go({"users"}, GetFolderItem(folder.path("in"), 0));
        runUntil([] { return !Thread::anyRunning(); });
        EXPECT_EQ(seteuid(user), 0);
        if (box == "Finished")
            EXPECT_EQ(column(1), "1.php,2.php,3.php,4.php,d.php,|");
        else
            EXPECT_TRUE(box.starts_with(ended + ": " + folder.path("in"))) << box;
        return box;
    }

    const std::shared_ptr<const TableNames> users =
        std::make_shared<const TableNames>(std::vector<std::string_view>{"users"});
};

TEST_F(Unreadable, EveryCallThatFailsEndsTheRunOrChangesNothing) {
    std::set<std::string> failed, calledByRun, calledAhead;
    for (const auto& [byRun, cold] : {std::pair<std::optional<bool>, bool>(true, false),
                                      {true, true},
                                      {false, false},
                                      {std::nullopt, true}}) {
        for (const char* call : {"readdir", "openat", "openat2", "preadv2", "read"}) {
            for (int nth = 1, made = nth; made >= nth; nth++) {
                FailingSystem system{call, byRun, cold, nth};
                SCOPED_TRACE(call + std::to_string(nth));
                const bool finished = run() == "Finished";
                EXPECT_TRUE(finished || byRun != false);
                if (!finished) failed.insert(call);
                made = system.made;
                if (made > 0) (byRun == true ? calledByRun : calledAhead).insert(call);
            }
        }
    }
    EXPECT_EQ(failed, (std::set<std::string>{"openat", "read", "readdir"}));
    EXPECT_EQ(calledByRun, std::set<std::string>{"readdir"}) << "files are read ahead of it";
    EXPECT_TRUE(calledAhead.contains("openat2") && calledAhead.contains("preadv2"));
}

// The threads that read ahead wait at their first file for the baton, which this one gives up only
// after it has told them to stop.
TEST_F(Unreadable, NothingIsReadAheadOnceNobodyWantsIt) {
    for (int file = 0; file < 300; file++) folder.write(std::to_string(file) + ".php", "users");
    std::latch stopped(1);
    FailingSystem system{"openat2", {}, false, INT_MAX, [&] { stopped.wait(); }};
    auto ahead = std::make_unique<ReadAhead>(GetFolderItem(folder.path(), 0), "", users);
    std::thread stop([&] {
        const baton::Hold hold;
        stopped.count_down();
    });
    ahead = nullptr;
    {
        // It may not have come to ask for the baton yet.
        BatonRelease released;
        stop.join();
    }
    EXPECT_LE(system.made, 8) << "one for each thread";
}

// Thirty reads wait for one another: with fewer threads this hangs.
TEST_F(Unreadable, WhatIsNotInMemoryIsReadOnManyThreads) {
    for (int file = 0; file < 60; file++) folder.write("cold/" + std::to_string(file), "users");
    std::latch together(30);
    std::atomic<int> came{0};
    FailingSystem system{"read", false, true, INT_MAX, [&] {
                             if (++came <= 30) together.arrive_and_wait();
                         }};
    ReadAhead ahead(GetFolderItem(folder.path("cold"), 0), "", users);
    const Ref<FolderItem> cold = GetFolderItem(folder.path("cold"), 0);
    for (int i = 1; i <= cold->Count(); i++)
        EXPECT_EQ(ahead.take(cold->Item(i)->AbsolutePath())->names.size(), 1U);
    EXPECT_EQ(system.made, 60) << "each file once";
}

TEST_F(Unreadable, ReadingAheadWaitsForTheRunAndGoesOn) {
    const std::string file = folder.write("many/0", "");
    for (int i = 1; i < 16'500; i++)
        fs::create_hard_link(file, folder.path("many/" + std::to_string(i)));
    const Ref<FolderItem> many = GetFolderItem(folder.path("many"), 0);
    for (const bool take : {false, true}) {
        FailingSystem system{"openat2"};
        ReadAhead ahead(many, "", users);
        while (system.made < 16'384) std::this_thread::yield();
        for (int i = 1; i <= 16'500; i++) {
            const std::string path = many->Item(i)->AbsolutePath();
            EXPECT_TRUE(!take || ahead.take(path));
        }
        EXPECT_LE(system.made, take ? 16'501 : 16'385);
    }
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
        EXPECT_EQ(box == "Finished", left > 0) << box;
    }
}

TEST_F(Unreadable, WhatIsRefusedIsNamed) {
    for (const auto& [name, named] : {std::pair("in/1.php", "in/1.php"),
                                      {"in/b", "in/b"},
                                      {"out/4.php", "in/c/4.php"},
                                      {"out", "in/c"}}) {
        const std::string closed = folder.path(name);
        chmod(closed.c_str(), 0);
        EXPECT_EQ(run(), ended + ": " + folder.path(named) + ": Permission denied");
        EXPECT_EQ(program.platform.abortStatus, 1);
        chmod(closed.c_str(), 0755);
    }
    EXPECT_EQ(run(), "Finished") << "with a file in it that the filter keeps out";
}

}  // namespace bracken::test
