#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <thread>

#include "framework/dialogs/dialogs.h"
#include "framework/threads/without_baton.h"
#include "framework/windows/event.h"
#include "platform/qt/qt_application.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

using Act = std::function<void(QMessageBox&)>;

Act key(Qt::Key key) {
    return [key](QMessageBox& box) { QTest::keyClick(&box, key); };
}

class Dialogs : public QtTest {
  protected:
    // Does `act` with the next box as soon as it is up.
    void onBox(const Act& act) {
        look_.disconnect();
        QObject::connect(&look_, &QTimer::timeout, [this, act] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr || !box->isVisible()) return;
            look_.stop();
            act(*box);
        });
        look_.start(1);
    }
    int ask(const std::string& text, int code, const Act& act) {
        onBox(act);
        return MsgBox(text, code);
    }
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
                    [&] { cancelled = over = true; });
                completed = true;
            });
            QCoreApplication::exit();
        });
        BatonRelease released;
        QCoreApplication::exec();
    }
    void press() { QTest::mouseClick(&widget(form.button), Qt::LeftButton); }

    Form& form = open<Form>();
    bool completed = false;
    bool cancelled = false;

  private:
    QTimer look_;
};

TEST_F(Dialogs, KeysAndButtonsAnswerABox) {
    const Act yes = [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); };
    EXPECT_EQ(ask("text", BoxCode::yesNoQuestion, yes), BoxCode::yesPressed);
    for (const Act& act : {key(Qt::Key_Return), key(Qt::Key_Escape), Act(&QMessageBox::close)}) {
        EXPECT_EQ(ask("text", BoxCode::ok, act), BoxCode::okPressed);
        EXPECT_EQ(ask("text", BoxCode::yesNoQuestion, act), BoxCode::noPressed);
    }
}

TEST_F(Dialogs, ALongTextIsPlainAndStaysUsable) {
    ask(std::string(1000, 'w') + std::string(1000, '\n'), BoxCode::ok, [](QMessageBox& box) {
        const QSize screen = box.screen()->availableSize();
        EXPECT_TRUE(box.height() < screen.height() && box.width() < screen.width());
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        box.reject();
    });
}

TEST_F(Dialogs, TakeInputDuringAStatementWhileTheWindowOnlyPaints) {
    int presses = 0;
    form.button.Action = [&] { presses++; };
    auto& button = widget<QPushButton>(form.button);
    makeStatement([&] {
        press();
        QTest::keyClick(&button, Qt::Key_Space);
        button.click();  // As an assistive program does it.
        viewOf(form)->close();
        EXPECT_EQ(ask("An error.", BoxCode::ok, key(Qt::Key_Return)), BoxCode::okPressed);
        form.button.Caption = "Painted";
        waitFor([&] { return button.text() == QStringLiteral("Painted"); });
    });
    EXPECT_TRUE(completed && !form.closed());
    EXPECT_EQ(presses, 0);
    press();
    EXPECT_EQ(presses, 1) << "input is taken again";
}

TEST_F(Dialogs, QuitAbandonsAStatement) {
    auto keep = form.shared_from_this();
    makeStatement([&] { QTest::keyClick(viewOf(form), Qt::Key_Q, Qt::ControlModifier); });
    EXPECT_TRUE(cancelled && !completed && keep->closed());
}

}  // namespace bracken::test
