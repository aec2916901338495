#include "framework/controls/buttons.h"
#include "framework/controls/plain_controls.h"
#include "tests/support/fake_platform.h"

namespace bracken::test {

class Probe : public Window {
  public:
    RectControl box{*this, "box"};
    RectControl outer{*this, "outer"};
    RectControl inner{*this, "inner"};
    StaticText label{*this, "label"};
    PushButton first{*this, "first"};
    std::string events;

  protected:
    void Layout() override { Width = Height = 100; }
    void CreateControls() override {
        box.place(10, 10, 30, 30);
        outer.place(10, 10, 50, 50);
        inner.place(20, 20, 20, 20);
        inner.Parent = &outer;
    }
    void Event_Open() override { events += "open "; }
    void Event_Close() override { events += "close "; }
    void Event_Resized() override { events += "resized:" + std::to_string(box.Width) + " "; }
};

class WindowTest : public testing::Test {
  protected:
    Probe& open() { return Windows::get().instance<Probe>(); }
    static std::string place(const RectControl& control) {
        return std::to_string(control.Left) + "," + std::to_string(control.Top) + " " +
               std::to_string(control.Width) + "x" + std::to_string(control.Height);
    }

    FakePlatform platform;
};

TEST_F(WindowTest, LocksHoldControlsToTheWindowsEdges) {
    // How a control at 10, 30 pixels long, lies in a window of 100 that becomes 150.
    struct Case {
        bool left, right, top, bottom;
        const char* grown;
    };
    for (const Case& c : {Case{false, false, true, false, "10,10 30x30"},
                          {true, false, false, true, "10,60 30x30"},
                          {false, true, true, true, "60,10 30x80"},
                          {true, true, false, false, "10,10 80x30"}}) {
        Probe& window = open();
        window.box.LockLeft = c.left;
        window.box.LockRight = c.right;
        window.box.LockTop = c.top;
        window.box.LockBottom = c.bottom;
        window.userResized(150, 150);
        EXPECT_EQ(place(window.box), c.grown);
        window.Close();
    }
}

TEST_F(WindowTest, ResizedComesAfterTheLayoutOnceForEachChange) {
    Probe& window = open();
    window.box.LockLeft = window.box.LockRight = true;
    window.userResized(120, 100);
    window.Height = 90;
    for (int times = 0; times < 2; times++) window.userResized(130, 110);
    EXPECT_EQ(window.events, "open resized:50 resized:50 resized:60 ");
}

TEST_F(WindowTest, AContainerMovesWhatItContains) {
    Probe& window = open();
    window.outer.place(15, 3, 90, 90);
    EXPECT_EQ(place(window.inner), "25,13 20x20");
    window.outer.LockRight = window.inner.LockLeft = true;
    window.Width = 150;
    EXPECT_EQ(window.outer.Left, 65);
    EXPECT_EQ(place(window.inner), "25,13 20x20") << "its locks are to the window's edges, too";
}

TEST_F(WindowTest, AWindowLivesUntilTheHandlerThatClosesItHasEnded) {
    Probe& window = open();
    std::weak_ptr<WindowContent> alive = window.weak_from_this();
    window.first.Action = [&] {
        window.Close();
        window.Close();
        EXPECT_EQ(window.events, "open close ");
        window.first.userPressed();
    };
    window.first.userPressed();
    EXPECT_TRUE(alive.expired());
}

TEST_F(WindowTest, OneInstanceAndAnOrderFromFrontToBack) {
    class Other : public Window {};
    Probe& probe = open();
    auto& other = Windows::get().instance<Other>();
    EXPECT_EQ(&open(), &probe);
    EXPECT_EQ(Windows::get().front(), &other);
    probe.Show();
    EXPECT_EQ(Windows::get().front(), &probe);
    probe.Visible = false;
    EXPECT_EQ(Windows::get().front(), &other);
    Windows::get().closeAll();
    EXPECT_THROW(open(), UnwindSignal);
}

TEST_F(WindowTest, ManyChangesAskForOneFrame) {
    Probe& window = open();
    beginFrame();
    window.label.takeDirty();
    const int before = platform.frames;
    for (int i = 0; i < 100; i++) window.label.Caption = std::to_string(i);
    EXPECT_EQ(platform.frames, before + 1);
    EXPECT_TRUE(window.label.takeDirty());
    beginFrame();
    window.label.Caption = "99";
    EXPECT_EQ(platform.frames, before + 1) << "nothing differs";
    window.label.Refresh(true);
    EXPECT_EQ(platform.frames, before + 2);
}

}  // namespace bracken::test
