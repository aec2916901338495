#include <random>

#include "framework/dialogs/dialogs.h"
#include "tests/support/fake_platform.h"

namespace bracken::test {

class Body : public Thread {
  public:
    explicit Body(std::function<void()> body) : body_(std::move(body)) {}

  protected:
    void Event_Run() override { body_(); }

  private:
    std::function<void()> body_;
};

Ref<Body> body(std::function<void()> work) {
    return make<Body>(std::move(work));
}

class ThreadTest : public testing::Test {
  protected:
    FakePlatform platform;
};

// Two numbers that a run changes together must never be seen apart, wherever the main thread cuts
// in, and after Kill they must stand still, also while the killed run unwinds beside a new one.
TEST_F(ThreadTest, KillFallsAtStoppingPointsOnly) {
    std::mt19937 random(20260101);
    int first = 0;
    int second = 0;
    auto thread = body([&] {
        while (true) {
            first++;
            second++;
            Thread::Yield();
            if (first % 3 == 0) withoutBaton([] { std::this_thread::yield(); });
        }
    });
    for (int kills = 0; kills < 300; kills++) {
        thread->Run();
        for (unsigned turns = random() % 8; turns > 0; turns--) Thread::Yield();
        ASSERT_EQ(first, second);
        thread->Kill();
        ASSERT_FALSE(thread->running());
        int atKill = first;
        for (unsigned turns = random() % 4; turns > 0; turns--) Thread::Yield();
        ASSERT_EQ(first, atKill);
        ASSERT_EQ(second, atKill);
    }
    EXPECT_GT(first, 10);
}

TEST_F(ThreadTest, KilledDuringABlockingCallItTouchesNothingMore) {
    std::atomic<bool> blocked{false};
    std::atomic<bool> release{false};
    bool touched = false;
    auto thread = body([&] {
        withoutBaton([&] {
            blocked = true;
            while (!release) std::this_thread::yield();
        });
        touched = true;
    });
    thread->Run();
    runUntil([&] { return blocked.load(); });
    thread->Kill();
    release = true;
    auto next = body([] {});
    next->Run();
    runUntil([&] { return !next->running(); });
    Thread::killAll();
    {
        BatonRelease released;
        Thread::joinAll();
    }
    EXPECT_FALSE(touched);
}

TEST_F(ThreadTest, ABoxOfARunIsAnsweredOnTheMainThreadAndTheRunComesNext) {
    std::string order;
    platform.expectBox("Finished");
    platform.whileBoxIsOpen = [] { EXPECT_TRUE(isMainThread() && !baton::held()); };
    auto thread = body([&] {
        MsgBox("Finished");
        order += "answered ";
        Beep();
        order += "beeped ";
    });
    thread->Run();
    order = "caller ";
    runUntil([&] { return order != "caller "; });
    order += "next event";
    EXPECT_EQ(order, "caller answered beeped next event");
    EXPECT_FALSE(thread->running());
    EXPECT_EQ(platform.beeps, 1);
}

TEST_F(ThreadTest, KillClosesTheBoxOfTheRun) {
    bool touched = false;
    platform.expectBox("Finished");
    platform.boxesStayOpen = true;
    auto thread = body([&] {
        MsgBox("Finished");
        touched = true;
    });
    platform.whileBoxIsOpen = [&] {
        baton::Hold hold;
        thread->Kill();
    };
    thread->Run();
    runUntil([&] { return platform.boxCodes.size() == 1; });
    EXPECT_FALSE(touched);
}

TEST_F(ThreadTest, KillReleasesARunWhoseBoxHasNotComeUpYet) {
    bool asking = false;
    bool unwound = false;
    struct Mark {
        bool& flag;
        ~Mark() { flag = true; }
    };
    auto thread = body([&] {
        Mark mark{unwound};
        asking = true;
        MsgBox("never shown");
    });
    thread->Run();
    while (!asking) {
        BatonRelease released;
        std::this_thread::yield();
    }
    thread->Kill();
    EXPECT_TRUE(unwound);
}

}  // namespace bracken::test
