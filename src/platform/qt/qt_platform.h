#pragma once

#include <QPointer>
#include <atomic>
#include <functional>
#include <vector>

#include "framework/platform/platform.h"
#include "platform/qt/message_box.h"
#include "platform/qt/qt_application.h"
#include "platform/qt/views.h"
#include "platform/qt/waker.h"

namespace bracken {

// The desktop by Qt Widgets. Made on the main thread; installs itself for its life.
class QtPlatform : public Platform {
  public:
    QtPlatform(int& argc, char** argv);
    ~QtPlatform() override;

    // Calls `start` as an event, which must register the application object, runs the event loop
    // till the program quits, and ends the runs and the views. The result is the process's status.
    // The caller must not hold the baton.
    int run(const std::function<void()>& start);

    int messageBox(const std::string& text, int code, const std::string& title) override;
    std::string selectFolder() override;
    std::string saveFile(const SaveQuestion& question) override;
    void runModal(const Window& window) override;
    void closeMessageBox() override;
    void beep() override;
    void launch(const std::string& path) override;
    ScreenRect screen() override { return screen_; }
    ScreenRect workArea() override { return workArea_; }
    bool offersEdit(const std::string& menuItemName) override;
    void performEdit(const std::string& menuItemName) override;
    std::string clipboardText() override;
    void setClipboardText(const std::string& text) override;
    void exitLoop(int status) override;
    void bringToFront(Window& window) override;
    void modelChanged() override;
    void abort(int status) override;
    void wake() override;
    bool hasEventLoop() override;
    bool pumpUntil(const std::atomic<bool>& done) override;

  private:
    void rememberFocus(QWidget* focus);
    // Keeps the screen's measures, which runs ask for too.
    void watchScreen();
    void measureScreen();
    // What a box opens above: an open dialog, else the window in front by the model, whatever the
    // desktop has activated so far.
    QWidget* belowBox();

    QtApplication application_;
    Waker waker_;
    Views views_;
    std::vector<MessageBox*> boxes_;
    // The control that has the focus, or had it before the menu bar took it.
    QPointer<QWidget> focus_;
    // With the baton.
    ScreenRect screen_{};
    ScreenRect workArea_{};
    bool exiting_ = false;
    int status_ = 0;
};

// Makes the platform and runs the program on it.
int runApplication(int& argc, char** argv, const std::function<void()>& start);

}  // namespace bracken
