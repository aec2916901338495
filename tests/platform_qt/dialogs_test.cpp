#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <atomic>
#include <thread>

#include "framework/dialogs/dialogs.h"
#include "framework/platform/platform.h"
#include "framework/threads/thread.h"
#include "framework/threads/without_baton.h"
#include "framework/windows/event.h"
#include "platform/qt/qt_application.h"
#include "tests/platform_qt/form.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

class Behind : public Window {};

class Asking : public Thread {
  public:
    bool asking = false;
    int answer = 0;

  protected:
    void Event_Run() override {
        asking = true;
        answer = MsgBox("From the run?", BoxCode::yesNoQuestion);
    }
};

using Act = std::function<void(QMessageBox&)>;

Act key(Qt::Key key) {
    return [key](QMessageBox& box) { QTest::keyClick(&box, key); };
}

QMessageBox* openBox() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    return box != nullptr && box->isVisible() ? box : nullptr;
}

class Dialogs : public QtTest {
  protected:
    // Does `act` with the next box as soon as it is up.
    void onBox(const Act& act) {
        look_.disconnect();
        QObject::connect(&look_, &QTimer::timeout, [this, act] {
            QMessageBox* box = openBox();
            if (box == nullptr) return;
            look_.stop();
            act(*box);
        });
        look_.start(1);
    }
    int ask(const std::string& text, int code, const Act& act) {
        onBox(act);
        return MsgBox(text, code, "Title");
    }
    void press() { QTest::mouseClick(&widget(form.button), Qt::LeftButton); }

    Form& form = open<Form>();

  private:
    QTimer look_;
};

TEST_F(Dialogs, KeysAndButtonsAnswerABox) {
    auto yes = [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); };
    EXPECT_EQ(ask("text", BoxCode::ok, key(Qt::Key_Return)), BoxCode::okPressed);
    EXPECT_EQ(ask("text", BoxCode::ok, key(Qt::Key_Escape)), BoxCode::okPressed);
    EXPECT_EQ(ask("text", BoxCode::yesNoQuestion, yes), BoxCode::yesPressed);
    for (auto [code, icon] : {std::pair(BoxCode::ok, QMessageBox::Information),
                              {BoxCode::error, QMessageBox::Critical},
                              {BoxCode::yesNoQuestion, QMessageBox::Question}}) {
        onBox([icon = icon](QMessageBox& box) {
            EXPECT_EQ(box.icon(), icon);
            EXPECT_GT(box.width(), 120 + box.fontMetrics().horizontalAdvance(box.windowTitle()));
            box.reject();
        });
        MsgBox(".", code, "A title that is longer than the text of the box");
    }
    for (const Act& no : {key(Qt::Key_Return), key(Qt::Key_Escape), Act(&QMessageBox::close)})
        EXPECT_EQ(ask("text", BoxCode::yesNoQuestion, no), BoxCode::noPressed);
}

TEST_F(Dialogs, ALongTextIsPlainAndStaysUsable) {
    std::string lines;
    for (int line = 0; line < 100'000; line++) lines += std::string(50, 'w') + "\n";
    for (auto& text : {lines, std::string(1'000'000, 'w')})
        ask(text, BoxCode::ok, [](QMessageBox& box) {
            QSize screen = box.screen()->availableSize();
            EXPECT_LT(box.height(), screen.height());
            EXPECT_LT(box.width(), screen.width());
            EXPECT_GT(box.detailedText().size(), 900'000);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            box.reject();
        });
}

TEST_F(Dialogs, KillingARunClosesItsBox) {
    auto run = std::make_shared<Asking>();
    run->Run();
    onBox([&](QMessageBox& /*box*/) { run->Kill(); });
    waitFor([&] { return !run->running() && openBox() == nullptr; });
    EXPECT_EQ(run->answer, 0);
}

TEST_F(Dialogs, ARunsBoxOpensInsideNoOtherEvent) {
    auto run = std::make_shared<Asking>();
    int presses = 0;
    form.button.Action = [&] {
        presses++;
        run->Run();
        while (!run->asking) Thread::Yield();
    };
    bool pressing = true;
    onBox([&](QMessageBox& box) {
        EXPECT_FALSE(pressing);
        box.button(QMessageBox::Yes)->click();
    });
    press();
    press();
    EXPECT_EQ(presses, 1) << "the second one was made before the box could be seen";
    pressing = false;
    waitFor([&] { return run->answer == BoxCode::yesPressed; });
}

TEST_F(Dialogs, AHandlersExceptionDoesNotPassThroughTheToolkit) {
    form.button.Action = form.closing = [] { throw UnwindSignal(); };
    auto behind = open<Behind>().shared_from_this();
    Windows::get().toFront(form);
    press();
    EXPECT_TRUE(form.closed()) << "the handler left by a quit has quit";
    EXPECT_TRUE(behind->closed()) << "and a closing one does not end that";
}

TEST_F(Dialogs, AClosingHandlerMayShowABox) {
    auto& behind = open<Behind>();
    int answer = 0;
    form.closing = [&] {
        answer = ask("closing", BoxCode::ok, [&](QMessageBox& box) {
            showFrame(behind);
            EXPECT_FALSE(viewOf(form)->isVisible());
            box.reject();
        });
    };
    form.button.Action = [&] { form.Close(); };
    press();
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
            QCoreApplication::exit();
        });
        BatonRelease released;
        QCoreApplication::exec();
    }

    bool completed_ = false;
    bool cancelled_ = false;
};

TEST_F(Statements, InputIsDroppedButForABoxAndTheWindowPaints) {
    int presses = 0;
    form.button.Action = [&] { presses++; };
    auto& button = widget<QPushButton>(form.button);
    makeStatement([&] {
        press();
        EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
        QTest::keyClick(&button, Qt::Key_Space);
        // As an assistive program does it.
        button.click();
        viewOf(form)->close();
        EXPECT_EQ(ask("An error.", BoxCode::ok, key(Qt::Key_Return)), BoxCode::okPressed);
        press();
        form.button.Caption = "Painted";
        waitFor([&] { return button.text() == QStringLiteral("Painted"); });
    });
    EXPECT_TRUE(completed_);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(presses, 0);
    EXPECT_FALSE(form.closed());
    press();
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
        waitFor([&] { return run->asking; });
        showFrame(form);
        EXPECT_EQ(openBox(), nullptr);
        onBox([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    });
    waitFor([&] { return run->answer == BoxCode::yesPressed; });
}

}  // namespace bracken::test
