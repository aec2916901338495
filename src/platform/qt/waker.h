#pragma once

#include <QObject>
#include <atomic>
#include <condition_variable>
#include <mutex>

namespace bracken {

// Wakes the main thread, in its event loop or in a short wait, and carries out there what runs have
// called. That has an event of its own: a box spins an event loop, and inside another event, such
// as a change of the focus, the toolkit is not prepared for the windows that come and go in it.
class Waker : public QObject {
  public:
    // Any thread.
    void wake();
    // Waits without the event loop for `done`, which is followed by a wake, for about as long as
    // nobody can see; whether it came. Main thread.
    bool waitBriefly(const std::atomic<bool>& done);

  protected:
    void customEvent(QEvent* event) override;

  private:
    std::mutex mutex_;
    std::condition_variable woken_;
    // Whether an event is under way, so that many calls do not fill the queue.
    std::atomic<bool> posted_{false};
};

}  // namespace bracken
