#include "platform/qt/qt_application.h"

#include <QScopedValueRollback>
#include <QThread>

#include "framework/threads/main_thread_calls.h"
#include "framework/windows/application.h"
#include "framework/windows/event.h"
#include "platform/qt/frame_style.h"
#include "platform/qt/input_events.h"

namespace bracken {

namespace {

// The mouse shows for a scope that the program takes no input.
class BusyCursor {
  public:
    BusyCursor() { QGuiApplication::setOverrideCursor(Qt::BusyCursor); }
    ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};

}  // namespace

QtApplication::QtApplication(int& argc, char** argv) : QApplication(argc, argv) {
    setQuitOnLastWindowClosed(false);
    // As part of an event: the end of one with no window open would end the program.
    QScopedValueRollback<bool> starting(handling_, true);
    setStyle(makeFrameStyle());
    // The layout is fixed, the texts are English, and from the right the slashes of a path would
    // change places.
    setLayoutDirection(Qt::LeftToRight);
}

QtApplication& QtApplication::current() {
    return *static_cast<QtApplication*>(QCoreApplication::instance());
}

void QtApplication::spin(const std::function<void()>& loop) {
    QScopedValueRollback<int> depth(innerLoops_, innerLoops_ + (handling_ ? 1 : 0));
    QScopedValueRollback<bool> outer(handling_, false);
    loop();
}

bool QtApplication::pumpUntil(const std::atomic<bool>& done) {
    quitChosen_ = false;
    BusyCursor cursor;
    spin([&] {
        processEvents();
        while (!done.load(std::memory_order_acquire) && !quitChosen_)
            processEvents(QEventLoop::WaitForMoreEvents);
    });
    return !quitChosen_;
}

bool QtApplication::dropsInStatement(const QObject& receiver, QEvent& event) {
    if (event.type() == QEvent::Quit || isQuitKey(event)) quitStatement();
    if (event.type() != QEvent::Quit && !isInput(event.type())) return false;
    if (isForMenus(receiver, event)) return false;
    event.ignore();
    return true;
}

bool QtApplication::deliver(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && beforeShortcut) beforeShortcut();
    if (event->type() != QEvent::Quit) return QApplication::notify(receiver, event);
    Application::current()->Quit();
    return true;
}

bool QtApplication::notify(QObject* receiver, QEvent* event) {
    bool ours = QThread::currentThread() == thread() && Application::current() != nullptr;
    if (!ours) return QApplication::notify(receiver, event);
    if (MainThreadCalls::instance().inStatement() && dropsInStatement(*receiver, *event))
        return true;
    // An event sent in the course of another one belongs to that.
    if (handling_) return deliver(receiver, event);
    bool result = false;
    {
        QScopedValueRollback<bool> scope(handling_, true);
        sinceEvent_.start();
        handleEvent([&] { result = deliver(receiver, event); });
    }
    if (innerLoops_ == 0 && idle) idle();
    return result;
}

}  // namespace bracken
