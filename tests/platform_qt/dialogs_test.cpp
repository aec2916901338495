#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <atomic>
#include <thread>

#include "framework/controls/event.h"
#include "framework/controls/progress.h"
#include "framework/controls/push_button.h"
#include "framework/dialogs/dialogs.h"
#include "framework/threads/blocking.h"
#include "framework/threads/thread.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

namespace {

class Form : public Window {
  public:
    PushButton button{*this, "button"};
    std::function<void()> closing = [] {};

  protected:
    void Event_Close() override { closing(); }
    void Layout() override {
        Width = 300;
        Height = 200;
    }
    void CreateControls() override { button.place(10, 10, 80, 20); }
};

class Behind : public Window {};

class Asking : public Thread {
  public:
    int answer = 0;
    bool finished = false;

  protected:
    void Event_Run() override {
        answer = MsgBox("From the run?", BoxCode::yesNoQuestion);
        finished = true;
    }
};

QMessageBox* openBox() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

}  // namespace

class Dialogs : public QtTest {
  protected:
    // Does `act` with the next box as soon as it is up.
    void onBox(const std::function<void(QMessageBox&)>& act) {
        look_.disconnect();
        QObject::connect(&look_, &QTimer::timeout, [this, act] {
            QMessageBox* box = openBox();
            if (box == nullptr || !box->isVisible()) return;
            look_.stop();
            act(*box);
        });
        look_.start(1);
    }
    int ask(const std::string& text, int code, const std::function<void(QMessageBox&)>& act) {
        onBox(act);
        return MsgBox(text, code, "Title");
    }

    Form& form = open<Form>();

  private:
    QTimer look_;
};

TEST_F(Dialogs, KeysAndButtonsAnswerABox) {
    struct Case {
        int code;
        Qt::Key key;
        int answer;
    };
    const Case cases[] = {
        {BoxCode::ok, Qt::Key_Return, BoxCode::okPressed},
        {BoxCode::ok, Qt::Key_Escape, BoxCode::okPressed},
        {BoxCode::yesNoQuestion, Qt::Key_Return, BoxCode::noPressed},
        {BoxCode::yesNoQuestion, Qt::Key_Escape, BoxCode::noPressed},
    };
    for (auto& [code, key, answer] : cases) {
        Qt::Key pressed = key;
        EXPECT_EQ(ask("text", code, [&](QMessageBox& box) { QTest::keyClick(&box, pressed); }),
                  answer);
    }
    auto pressYes = [](QMessageBox& box) {
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    };
    EXPECT_EQ(ask("text", BoxCode::yesNoQuestion, pressYes), BoxCode::yesPressed);
    auto close = [](QMessageBox& box) { box.close(); };
    EXPECT_EQ(ask("text", BoxCode::yesNoQuestion, close), BoxCode::noPressed);
}

TEST_F(Dialogs, TextIsShownPlainAndALongOneStaysUsable) {
    ask("<b>bold</b> \x01", BoxCode::ok, [](QMessageBox& box) {
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_TRUE(box.text().startsWith(QStringLiteral("<b>bold</b> ")));
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Title"));
        box.reject();
    });
    std::string large;
    for (int line = 0; line < 100'000; line++) large += std::string(50, 'w') + "\n";
    for (auto& text : {large, std::string(1'000'000, 'w')})
        ask(text, BoxCode::ok, [](QMessageBox& box) {
            QSize screen = box.screen()->availableSize();
            EXPECT_LT(box.height(), screen.height());
            EXPECT_LT(box.width(), screen.width());
            EXPECT_GT(box.detailedText().size(), 900'000);
            box.reject();
        });
}

TEST_F(Dialogs, ARunsBoxIsShownOnTheMainThread) {
    auto run = std::make_shared<Asking>();
    run->Run();
    onBox([&](QMessageBox& box) {
        EXPECT_FALSE(run->finished);
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    });
    waitFor([&] { return run->finished; });
    EXPECT_EQ(run->answer, BoxCode::yesPressed);
}

TEST_F(Dialogs, KillingARunClosesItsBox) {
    auto run = std::make_shared<Asking>();
    run->Run();
    QTimer kill;
    QObject::connect(&kill, &QTimer::timeout, [&] {
        if (openBox() != nullptr && openBox()->isVisible()) run->Kill();
    });
    kill.start(1);
    waitFor([&] { return !run->running() && openBox() == nullptr; });
    EXPECT_FALSE(run->finished);
}

TEST_F(Dialogs, AHandlersExceptionDoesNotPassThroughTheToolkit) {
    form.button.Action = form.closing = [] { throw UnwindSignal(); };
    auto behind = open<Behind>().shared_from_this();
    Windows::open().toFront(form);
    QTest::mouseClick(&widget(form.button), Qt::LeftButton);
    EXPECT_TRUE(form.closed()) << "the handler left by a quit has quit";
    EXPECT_TRUE(behind->closed()) << "and a closing one does not end that";
}

TEST_F(Dialogs, AClosingHandlerMayShowABox) {
    int answer = 0;
    form.closing = [&] {
        answer = ask("closing", BoxCode::ok, [&](QMessageBox& box) {
            showFrame();
            EXPECT_FALSE(viewOf(form)->isVisible());
            box.reject();
        });
    };
    form.button.Action = [&] { form.Close(); };
    QTest::mouseClick(&widget(form.button), Qt::LeftButton);
    EXPECT_EQ(answer, BoxCode::okPressed);
}

class Statements : public Dialogs {
  protected:
    // Makes a statement from an event's handler, and does `meanwhile` on the main thread while it
    // is under way. The statement ends after that, or when it is cancelled.
    void makeStatement(const std::function<void()>& meanwhile) {
        std::atomic<bool> over{false};
        QTimer::singleShot(0, viewOf(form), [&] {
            QTimer::singleShot(0, viewOf(form), [&] {
                meanwhile();
                over = true;
            });
            handleEvent([&] {
                blocking(
                    [&] {
                        while (!over) std::this_thread::yield();
                    },
                    [&] { cancelled_ = over = true; });
                completed_ = true;
            });
            over = true;
        });
        runLoopUntil([&] { return over && !QtApplication::current().inStatement(); });
    }

    bool completed_ = false;
    bool cancelled_ = false;
};

TEST_F(Statements, InputIsDroppedAndTheWindowPaints) {
    int presses = 0;
    form.button.Action = [&] { presses++; };
    QWidget& button = widget(form.button);
    makeStatement([&] {
        QTest::mouseClick(&button, Qt::LeftButton);
        QTest::keyClick(&button, Qt::Key_Space);
        viewOf(form)->close();
        form.button.Caption = "Painted";
        waitFor(
            [&] { return static_cast<QPushButton&>(button).text() == QStringLiteral("Painted"); });
    });
    EXPECT_TRUE(completed_);
    EXPECT_EQ(presses, 0);
    EXPECT_FALSE(form.closed());
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(presses, 1) << "input is taken again";
}

TEST_F(Statements, QuitAbandonsTheStatement) {
    auto keep = form.shared_from_this();
    makeStatement([&] { QTest::keyClick(viewOf(form), Qt::Key_Q, Qt::ControlModifier); });
    EXPECT_TRUE(cancelled_);
    EXPECT_FALSE(completed_);
    EXPECT_TRUE(keep->closed());
}

TEST_F(Statements, ARunsBoxWaitsForTheStatement) {
    auto run = std::make_shared<Asking>();
    makeStatement([&] {
        run->Run();
        showFrame();
        EXPECT_EQ(openBox(), nullptr);
    });
    onBox([](QMessageBox& box) { box.reject(); });
    waitFor([&] { return run->finished; });
}

}  // namespace bracken::test
