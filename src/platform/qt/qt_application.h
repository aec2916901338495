#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <atomic>
#include <functional>

namespace bracken {

// The toolkit's application object. Each event that it delivers runs holding the baton, by the
// framework's handleEvent, so that no exception of a handler passes through the toolkit's loop; and
// it drops input while MainThreadCalls says so. Main thread.
class QtApplication : public QApplication {
  public:
    QtApplication(int& argc, char** argv);

    static QtApplication& current();

    // Called between two events of the outermost loop, when no handler is under way.
    std::function<void()> idle;
    // Called before a key is looked up among the shortcuts.
    std::function<void()> beforeShortcut;

    // Runs `loop`, which spins an event loop, as a dialog does inside the handling of an event.
    // Without the baton.
    void spin(const std::function<void()>& loop);

    // Delivers events other than input at least once and until `done`, looking at it after each and
    // whenever the loop is woken; false if the user chose Quit meanwhile.
    bool pumpUntil(const std::atomic<bool>& done);
    // Milliseconds that the latest event has been handled for.
    qint64 busyFor() const { return sinceEvent_.elapsed(); }
    // The user chose Quit during a statement.
    void quitStatement() { quitChosen_ = true; }

    bool notify(QObject* receiver, QEvent* event) override;

  private:
    bool deliver(QObject* receiver, QEvent* event);
    bool dropsInStatement(const QObject& receiver, QEvent& event);

    // Whether an event of the innermost loop is being handled, and how many loops run inside
    // another.
    bool handling_ = false;
    int innerLoops_ = 0;
    bool quitChosen_ = false;
    QElapsedTimer sinceEvent_;
};

}  // namespace bracken
