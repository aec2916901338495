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

void pressYes(QMessageBox& box) {
    box.button(QMessageBox::Yes)->click();
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
        return MsgBox(text, code, "A title that is longer than most texts");
    }
    void press() { QTest::mouseClick(&widget(form.button), Qt::LeftButton); }

    Form& form = open<Form>();

  private:
    QTimer look_;
};

TEST_F(Dialogs, KeysAndButtonsAnswerABox) {
    EXPECT_EQ(ask("text", BoxCode::yesNoQuestion, pressYes), BoxCode::yesPressed);
    for (auto [code, icon] : {std::pair(BoxCode::ok, QMessageBox::Information),
                              {BoxCode::error, QMessageBox::Critical},
                              {BoxCode::yesNoQuestion, QMessageBox::Question}}) {
        ask(".", code, [icon = icon](QMessageBox& box) {
            EXPECT_EQ(box.icon(), icon);
            EXPECT_GT(box.width(), 120 + box.fontMetrics().horizontalAdvance(box.windowTitle()));
            box.reject();
        });
    }
    for (const Act& act : {key(Qt::Key_Return), key(Qt::Key_Escape), Act(&QMessageBox::close)}) {
        EXPECT_EQ(ask("text", BoxCode::ok, act), BoxCode::okPressed);
        EXPECT_EQ(ask("text", BoxCode::yesNoQuestion, act), BoxCode::noPressed);
    }
}

TEST_F(Dialogs, ALongTextIsPlainAndStaysUsable) {
    std::string lines;
    for (int line = 0; line < 100'000; line++) lines += std::string(50, 'w') + "\n";
    ask(lines, BoxCode::ok, [](QMessageBox& box) {
        const QSize screen = box.screen()->availableSize();
        EXPECT_TRUE(box.height() < screen.height() && box.width() < screen.width());
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

TEST_F(Dialogs, AHandlersExceptionDoesNotPassThroughTheToolkit) {
    form.button.Action = form.closing = [] { throw UnwindSignal(); };
    auto behind = open<Behind>().shared_from_this();
    Windows::get().toFront(form);
    press();
    EXPECT_TRUE(form.closed()) << "the handler left by a quit has quit";
    EXPECT_TRUE(behind->closed()) << "and a closing one does not end that";
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
        QTest::keyClick(&button, Qt::Key_Space);
        // As an assistive program does it.
        button.click();
        viewOf(form)->close();
        EXPECT_EQ(ask("An error.", BoxCode::ok, key(Qt::Key_Return)), BoxCode::okPressed);
        form.button.Caption = "Painted";
        waitFor([&] { return button.text() == QStringLiteral("Painted"); });
    });
    EXPECT_TRUE(completed_ && !form.closed());
    EXPECT_EQ(presses, 0);
    press();
    EXPECT_EQ(presses, 1) << "input is taken again";
}

TEST_F(Statements, QuitAbandonsTheStatement) {
    auto keep = form.shared_from_this();
    makeStatement([&] { QTest::keyClick(viewOf(form), Qt::Key_Q, Qt::ControlModifier); });
    EXPECT_TRUE(cancelled_ && !completed_ && keep->closed());
}

}  // namespace bracken::test
