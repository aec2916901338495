#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "framework/windows/window.h"
#include "platform/qt/control_view.h"
#include "platform/qt/menu_bar_view.h"
#include "platform/qt/window_frame.h"

namespace bracken {

// A window: the menu bar on top, the content area with the controls below it. Keeps the model
// alive. Main thread, holding the baton.
class WindowView : public QWidget {
  public:
    explicit WindowView(std::shared_ptr<Window> window);
    ~WindowView() override;

    Window& model() const { return *window_; }
    // Takes over what has changed in the model since the last call.
    void sync();
    void bringToFront();
    // Shows which menu items are enabled now.
    void refreshMenus();

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void setFlags();
    void makeMenuBar();
    void makeControls();
    void setTabOrderOfControls();
    void syncWindow();
    void nameControl(QWidget& widget, const RectControl& control);
    void showAsModel();
    int menuHeight() const;

    std::shared_ptr<Window> window_;
    MenuBarView* menuBar_ = nullptr;
    QWidget* content_;
    WindowFrame* frame_;
    std::vector<ControlView*> controls_;
    bool fresh_ = true;
};

}  // namespace bracken
