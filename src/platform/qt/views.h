#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>
#include <memory>
#include <vector>

#include "framework/windows/window.h"
#include "platform/qt/window_view.h"

namespace bracken {

// The views of the open windows, brought up to the model once a frame at most. Main thread, holding
// the baton, but for what says otherwise.
class Views : public QObject {
  public:
    ~Views() override;

    // Any thread: the model has changed, a frame is due.
    void requestFrame();
    // Brings the views up to the model at once.
    void frame();
    // The window comes to the front with the next frame. Any thread.
    void bringToFront(Window& window);
    // The view of the window in front, made if it is due; null with no window.
    QWidget* front();
    // Shows which menu items are enabled now, in the window that is active.
    void refreshMenus();
    // Destroys the views of closed windows, as an event of its own. Without the baton, while no
    // handler is under way.
    void destroyClosed();
    // Destroys all views.
    void clear();

  protected:
    void customEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

  private:
    void dropClosed();
    void addOpened();
    WindowView* viewOf(const Window& window) const;

    std::vector<std::unique_ptr<WindowView>> views_;
    // Of closed windows, hidden; a handler of theirs may still be under way.
    std::vector<std::unique_ptr<WindowView>> closed_;
    std::vector<std::weak_ptr<Window>> toFront_;
    QElapsedTimer sinceFrame_;
    QBasicTimer untilFrame_;
};

}  // namespace bracken
